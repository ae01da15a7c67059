// SPDX-License-Identifier: GPL-3.0-or-later
#include "PageEvaluation.h"

#include "En50160Page.h"
#include "PqTestStatistics.h"

namespace lorvane {

namespace {

constexpr double insideShare = 0.95;
constexpr double exceedShare = 0.05;
constexpr int phases = PqTestStatistics::phases;

template <typename Test> bool everyPhase(const Test& test)
{
    for (int phase = 0; phase < phases; ++phase) {
        if (!test(phase))
            return false;
    }
    return true;
}

bool frequencyPasses(const PqTestStatistics& s)
{
    const double n1 = s.n1();
    const auto bin = [&s](int i) { return double(s.frequency(i)); };
    if (s.frequencyParameter() != 0)
        return bin(0) == 0 && bin(9) == 0 && bin(4) + bin(5) >= insideShare * n1 && n1 != 0;
    return bin(0) == 0 && bin(1) == 0 && bin(8) == 0 && bin(9) == 0 &&
           bin(3) + bin(4) + bin(5) + bin(6) >= insideShare * n1 && n1 != 0;
}

bool slowVoltagePasses(const PqTestStatistics& s)
{
    const double n2 = s.n2();
    if (n2 == 0)
        return false;
    for (int phase = 0; phase < phases; ++phase) {
        if (double(s.slowVoltage(phase, 2)) + s.slowVoltage(phase, 3) >= insideShare * n2)
            return true;
    }
    return false;
}

bool fastVoltagePasses(const PqTestStatistics& s)
{
    const auto bin = [&s](int phase, int i) { return double(s.fastVoltage(phase, i)); };
    const bool first = everyPhase([&bin](int p) {
        return bin(p, 0) == 0 && bin(p, 5) == 0 && bin(p, 2) + bin(p, 3) >= bin(p, 1) + bin(p, 4);
    });
    if (first)
        return true;
    const double allowance = s.fastVoltageAllowance();
    return allowance != 0 &&
           everyPhase([&bin, allowance](int p) { return bin(p, 1) + bin(p, 4) <= 7 * allowance; });
}

bool harmonicsPass(const PqTestStatistics& s)
{
    const double n2 = s.n2();
    if (!(n2 > 0))
        return false;
    return everyPhase([&s, n2](int phase) {
        for (int order = 2; order <= 25; ++order) {
            if (!(double(s.harmonic(phase, order)) < exceedShare * n2))
                return false;
        }
        return true;
    });
}

} // namespace

PageEvaluation::Verdict PageEvaluation::evaluate(int pageIndex, const PqTestStatistics& s)
{
    bool passed = false;
    switch (pageIndex) {
    case int(En50160Page::FRE):
        passed = frequencyPasses(s);
        break;
    case int(En50160Page::LSV):
        passed = slowVoltagePasses(s);
        break;
    case int(En50160Page::FVF):
        passed = fastVoltagePasses(s);
        break;
    case int(En50160Page::FLI):
        passed = everyPhase(
            [&s](int phase) { return double(s.flicker(phase, 0)) >= insideShare * s.n3(); });
        break;
    case int(En50160Page::SVU):
        passed = double(s.unbalance(0)) >= insideShare * s.n2() && s.n2() != 0;
        break;
    case int(En50160Page::HAR):
        passed = harmonicsPass(s);
        break;
    case int(En50160Page::THD):
        passed =
            everyPhase([&s](int phase) { return double(s.thd(phase)) <= exceedShare * s.n2(); });
        break;
    default:
        return Verdict::None;
    }
    return passed ? Verdict::Passed : Verdict::Failed;
}

QString PageEvaluation::word(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Passed:
        return QStringLiteral("Passed");
    case Verdict::Failed:
        return QStringLiteral("Failed");
    case Verdict::None:
        break;
    }
    return {};
}

} // namespace lorvane
