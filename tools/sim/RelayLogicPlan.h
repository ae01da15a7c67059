// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <array>

namespace lorvane::sim {

/// The gate settings of the simulated relays and the status words their records carry, so
/// that a record's input bits, gate bytes and trip agree with its setting. The gates form the
/// viewer's tree: A joins logic inputs 1 and 2, B 3 and 4, C 5 and 6, D 7 and 8, E joins A and
/// B, F joins C and D, G joins E and F; logic inputs 9 to 44 set the relay directly.
class RelayLogicPlan
{
public:
    /// One gate: its `LogicComb` byte (type in bits 2-4, bit 0/1 first/second input inverted).
    using Gates = std::array<int, 7>;
    /// What a record says about the logic at its trigger.
    struct Words
    {
        qint64 inputStatus = 0;
        qint64 inputStatusB = 0;
        qint64 gateStatus = 0;
    };

    /// Relay 0 "Load Shed": A = current limit AND main breaker closed.
    static Gates loadShed();
    /// Relay 1 "Undervoltage Alarm": A = Va low OR Vb low, E = A OR Vc low.
    static Gates undervoltage();
    /// Relay 2 "Feeder Lockout": every gate type once at least and inverted inputs: A XOR
    /// (first inverted), B Hysteresis (second inverted), C NAND (both inverted), D NOR, E NXOR,
    /// F NHysteresis (first inverted), G OR.
    static Gates lockout();
    /// The names of the lockout relay's logic inputs by number (1 to 8, 43 and 44).
    static QList<std::pair<int, QString>> lockoutInputs();

    /// The words of a record whose logic inputs `on` (numbers 1 to 44) were set, evaluated
    /// through `gates`.
    static Words words(const Gates& gates, const QList<int>& on);
};

} // namespace lorvane::sim
