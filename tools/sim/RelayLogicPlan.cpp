// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicPlan.h"

#include "store/RelayGateByte.h"

namespace lorvane::sim {

namespace {

using G = RelayGateByte;

bool evaluate(int comb, bool first, bool second)
{
    const G gate = G::decode(comb);
    const bool a = first != gate.firstInverted;
    const bool b = second != gate.secondInverted;
    // A hysteresis gate holds while its first input is set and its second has not reset it.
    switch (gate.type) {
    case G::And:
        return a && b;
    case G::Or:
        return a || b;
    case G::Xor:
        return a != b;
    case G::Hysteresis:
        return a && !b;
    case G::Nand:
        return !(a && b);
    case G::Nor:
        return !(a || b);
    case G::Nxor:
        return a == b;
    default:
        return !(a && !b);
    }
}

/// The bit of logic input `n` in the two status words.
void setBit(RelayLogicPlan::Words& w, int n)
{
    if (n >= 22 && n <= 42)
        w.inputStatusB |= qint64(1) << (n - 22);
    else if (n == 43 || n == 44)
        w.inputStatus |= qint64(1) << (n - 22);
    else if (n >= 1 && n <= 21)
        w.inputStatus |= qint64(1) << (n - 1);
}

} // namespace

RelayLogicPlan::Gates RelayLogicPlan::loadShed()
{
    return {G::encode(G::And, false, false), 0, 0, 0, 0, 0, 0};
}

RelayLogicPlan::Gates RelayLogicPlan::undervoltage()
{
    const int orGate = G::encode(G::Or, false, false);
    return {orGate, 0, 0, 0, orGate, 0, 0};
}

RelayLogicPlan::Gates RelayLogicPlan::lockout()
{
    return {G::encode(G::Xor, true, false),   G::encode(G::Hysteresis, false, true),
            G::encode(G::Nand, true, true),   G::encode(G::Nor, false, false),
            G::encode(G::Nxor, false, false), G::encode(G::NHysteresis, true, false),
            G::encode(G::Or, false, false)};
}

QList<std::pair<int, QString>> RelayLogicPlan::lockoutInputs()
{
    return {{1, QStringLiteral("Limit 1 Va Below 108 V")},
            {2, QStringLiteral("Input 0 Main Breaker Closed")},
            {3, QStringLiteral("Limit 7 Ia Above 320 A")},
            {4, QStringLiteral("Input 1 Door Open")},
            {5, QStringLiteral("Limit 4 Va Above 132 V")},
            {6, QStringLiteral("Input 2 Transfer Switch")},
            {7, QStringLiteral("Limit 2 Vb Below 108 V")},
            {8, QStringLiteral("Input 3 Alarm Reset")},
            {43, QStringLiteral("Input 43 Remote Trip")},
            {44, QStringLiteral("Input 44 Bus Coupler Open")}};
}

RelayLogicPlan::Words RelayLogicPlan::words(const Gates& gates, const QList<int>& on)
{
    Words w;
    for (int n : on)
        setBit(w, n);
    std::array<bool, 8> out{};
    for (int g = 0; g < 4; ++g)
        out[g] = evaluate(gates[g], on.contains(2 * g + 1), on.contains(2 * g + 2));
    out[4] = evaluate(gates[4], out[0], out[1]);
    out[5] = evaluate(gates[5], out[2], out[3]);
    out[6] = evaluate(gates[6], out[4], out[5]);
    for (int g = 0; g < 7; ++g)
        if (out[g])
            w.gateStatus |= qint64(1) << (8 * g);
    return w;
}

} // namespace lorvane::sim
