// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"

#include <QVariantMap>

namespace lorvane {

/// Rebuilds a relay's logic from its setting row (`RelayLogDataItem`) and one record of its log
/// (`RelayLogA`), each as column -> value.
///
/// The gates form a fixed binary tree over eight input places: gate A joins logic inputs 1 and
/// 2, B 3 and 4, C 5 and 6, D 7 and 8; E joins A and B, F joins C and D, and G joins E and F.
/// Only named inputs (a non-empty `LogicStr{n}`) take part; a gate left with one signal is
/// left out and its signal passes on, so the tree shows only gates that join two. What comes
/// out of the top is set path S1. On the newer meters the named inputs 9 to 44 form set path
/// S2, any of them setting the relay. The set paths run into the set delay; the set and reset
/// delays into the relay.
///
/// States: an input from its bit (RelayInputBits), a gate from its byte of `GateStatus`
/// (byte 0 for gate A; a null block: unknown), a set path and the set delay from what feeds
/// them, the reset delay the opposite of the set delay, the relay from `Condition3` (0 NC at
/// rest, 1 NO set, 2 locked: set and "Opened and Locked").
class RelayLogicBuilder
{
public:
    /// The tree, laid out. Throws Fault: a device type without a tree (RelayMeterKind), or
    /// an empty setting or record row ("Cannot find relay setup information.").
    static RelayLogicTree build(int deviceTypeId, const QVariantMap& setting,
                                const QVariantMap& record);
    /// The message of a missing setting or record.
    static QString missingSetting();
};

} // namespace lorvane
