// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace lorvane {

/// One `LogicComb{n}` byte of a relay setting: bit 0 set inverts the gate's first input, bit 1
/// its second, and bits 2 to 4 ((byte AND 28) / 4) give the gate type. The setting view and
/// the relay logic tree read a gate through this one decoding, so both name the same type.
struct RelayGateByte
{
    /// Positions in the list of gate type texts (`SystemEventTexts::logicOperator`).
    enum Type
    {
        And,
        Or,
        Xor,
        Hysteresis,
        Nand,
        Nor,
        Nxor,
        NHysteresis,
    };
    static constexpr int typeCount = 8;

    int type = And;
    bool firstInverted = false;
    bool secondInverted = false;

    /// The gate of a stored byte; bits above bit 4 carry nothing and are ignored.
    static RelayGateByte decode(qint64 comb)
    {
        return {int((comb & 28) / 4), (comb & 1) != 0, (comb & 2) != 0};
    }
    /// The stored byte of a gate (the simulator writes settings through it).
    static int encode(int type, bool firstInverted, bool secondInverted)
    {
        return (type & 7) * 4 + (firstInverted ? 1 : 0) + (secondInverted ? 2 : 0);
    }
};

} // namespace lorvane
