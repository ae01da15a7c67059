// SPDX-License-Identifier: GPL-3.0-or-later
// The pass rules of each page at their bound and one step past it, on blocks built here.
// Totals are 100 so that 0.95 N and 0.05 N are whole counts.
#include "en50160/PageEvaluation.h"

#include "StatisticsBuilder.h"
#include "en50160/En50160Page.h"

#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::Bins;
using lorvane::test::statistics;
using V = PageEvaluation::Verdict;

namespace {

struct RuleCase
{
    const char* name;
    En50160Page page;
    PqTestStatistics block;
    V expected;
};

PqTestStatistics withTotals(std::initializer_list<std::pair<int, double>> counts,
                            int frequencyParameter = 1, int fastAllowance = 0)
{
    PqTestStatistics s = statistics(counts, frequencyParameter, fastAllowance);
    s.setBin(Bins::n1, 100);
    s.setBin(Bins::n2, 100);
    s.setBin(Bins::n3, 100);
    return s;
}

/// Phases B and C of the slow voltage far outside the band, so only phase A decides.
PqTestStatistics slowVoltage(double inside)
{
    return withTotals({{Bins::slow(0, 2), inside - 50},
                       {Bins::slow(0, 3), 50},
                       {Bins::slow(0, 1), 100 - inside},
                       {Bins::slow(1, 0), 100},
                       {Bins::slow(2, 4), 100}});
}

/// Every phase with its fast voltage in bins 2 and 3, then `changes` on phase C.
PqTestStatistics fastVoltage(std::initializer_list<std::pair<int, double>> changes,
                             int allowance = 0)
{
    PqTestStatistics s =
        withTotals({{Bins::fast(0, 2), 100}, {Bins::fast(1, 3), 100}}, 1, allowance);
    for (const auto& [bin, count] : changes)
        s.setBin(Bins::fast(2, bin), count);
    return s;
}

const std::vector<RuleCase>& ruleCases()
{
    static const std::vector<RuleCase> cases{
        // Frequency with P_Freq set: bins 4 and 5 hold 95 % and the outer bins are empty.
        {"FRE 4+5 at 95", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 90}, {Bins::frequency(5), 5}, {Bins::frequency(3), 5}}),
         V::Passed},
        {"FRE 4+5 at 94", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 89}, {Bins::frequency(5), 5}, {Bins::frequency(3), 6}}),
         V::Failed},
        {"FRE bin 9 one", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 99}, {Bins::frequency(9), 1}}), V::Failed},
        {"FRE bin 0 one", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 99}, {Bins::frequency(0), 1}}), V::Failed},
        {"FRE bin 1 ignored with P_Freq", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 99}, {Bins::frequency(1), 1}}), V::Passed},
        // With P_Freq 0: bins 3 to 6 hold 95 % and bins 0, 1, 8, 9 are empty.
        {"FRE P0 3..6 at 95", En50160Page::FRE,
         withTotals({{Bins::frequency(3), 45}, {Bins::frequency(6), 50}, {Bins::frequency(7), 5}},
                    0),
         V::Passed},
        {"FRE P0 3..6 at 94", En50160Page::FRE,
         withTotals({{Bins::frequency(3), 44}, {Bins::frequency(6), 50}, {Bins::frequency(7), 6}},
                    0),
         V::Failed},
        {"FRE P0 bin 1 one", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 99}, {Bins::frequency(1), 1}}, 0), V::Failed},
        {"FRE P0 bin 8 one", En50160Page::FRE,
         withTotals({{Bins::frequency(4), 99}, {Bins::frequency(8), 1}}, 0), V::Failed},
        {"FRE N1 zero", En50160Page::FRE, statistics({}), V::Failed},
        // One phase inside the band is enough for the slow voltage.
        {"LSV one phase at 95", En50160Page::LSV, slowVoltage(95), V::Passed},
        {"LSV one phase at 94", En50160Page::LSV, slowVoltage(94), V::Failed},
        {"LSV N2 zero", En50160Page::LSV, statistics({{Bins::slow(0, 2), 5}}), V::Failed},
        // Fast voltage: the first test, then the allowance of 7 per unit of P_FVF.
        {"FVF bins 2 and 3 only, no allowance", En50160Page::FVF, fastVoltage({}), V::Passed},
        {"FVF 2+3 equal to 1+4", En50160Page::FVF, fastVoltage({{2, 50}, {1, 30}, {4, 20}}),
         V::Passed},
        {"FVF 2+3 one below 1+4", En50160Page::FVF, fastVoltage({{2, 49}, {1, 31}, {4, 20}}),
         V::Failed},
        {"FVF bin 0 one, no allowance", En50160Page::FVF, fastVoltage({{2, 99}, {0, 1}}),
         V::Failed},
        {"FVF bin 5 one, 1+4 at 7 of allowance 1", En50160Page::FVF,
         fastVoltage({{2, 92}, {5, 1}, {1, 4}, {4, 3}}, 1), V::Passed},
        {"FVF bin 5 one, 1+4 at 8 of allowance 1", En50160Page::FVF,
         fastVoltage({{2, 91}, {5, 1}, {1, 4}, {4, 4}}, 1), V::Failed},
        {"FVF all zero passes the first test", En50160Page::FVF, statistics({}), V::Passed},
        // Flicker needs every phase, with no test for an empty period.
        {"FLI phase B at 95", En50160Page::FLI,
         withTotals({{Bins::flicker(0, 0), 100},
                     {Bins::flicker(1, 0), 95},
                     {Bins::flicker(1, 1), 5},
                     {Bins::flicker(2, 0), 100}}),
         V::Passed},
        {"FLI phase B at 94", En50160Page::FLI,
         withTotals({{Bins::flicker(0, 0), 100},
                     {Bins::flicker(1, 0), 94},
                     {Bins::flicker(1, 1), 6},
                     {Bins::flicker(2, 0), 100}}),
         V::Failed},
        {"FLI all zero", En50160Page::FLI, statistics({}), V::Passed},
        {"SVU at 95", En50160Page::SVU,
         withTotals({{Bins::unbalance(0), 95}, {Bins::unbalance(2), 5}}), V::Passed},
        {"SVU at 94", En50160Page::SVU,
         withTotals({{Bins::unbalance(0), 94}, {Bins::unbalance(1), 6}}), V::Failed},
        {"SVU N2 zero", En50160Page::SVU, statistics({}), V::Failed},
        // Harmonics: every order and phase below 5 %, and N2 above 0.
        {"HAR order 25 phase C at 4", En50160Page::HAR,
         withTotals({{Bins::harmonic(2, 25), 4}, {Bins::harmonic(0, 2), 4}}), V::Passed},
        {"HAR order 25 phase C at 5", En50160Page::HAR, withTotals({{Bins::harmonic(2, 25), 5}}),
         V::Failed},
        {"HAR order 2 phase A at 5", En50160Page::HAR, withTotals({{Bins::harmonic(0, 2), 5}}),
         V::Failed},
        {"HAR N2 zero", En50160Page::HAR, statistics({}), V::Failed},
        // THD allows up to and including 5 %, with no test for an empty period.
        {"THD phase C at 5", En50160Page::THD, withTotals({{Bins::thd(2), 5}}), V::Passed},
        {"THD phase C at 6", En50160Page::THD, withTotals({{Bins::thd(2), 6}}), V::Failed},
        {"THD all zero", En50160Page::THD, statistics({}), V::Passed},
        {"VOD has no rule", En50160Page::VOD, statistics({}), V::None},
        {"LIV has no rule", En50160Page::LIV, withTotals({}), V::None},
    };
    return cases;
}

} // namespace

TEST(PageEvaluation, EachRuleAtItsBoundAndOneStepPast)
{
    for (const RuleCase& c : ruleCases()) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(PageEvaluation::evaluate(int(c.page), c.block), c.expected);
    }
}

TEST(PageEvaluation, IndicesOutsideThePagesAndTheWords)
{
    const PqTestStatistics block = statistics({});
    EXPECT_EQ(PageEvaluation::evaluate(-1, block), V::None);
    EXPECT_EQ(PageEvaluation::evaluate(10, block), V::None);
    EXPECT_EQ(PageEvaluation::word(V::Passed), QStringLiteral("Passed"));
    EXPECT_EQ(PageEvaluation::word(V::Failed), QStringLiteral("Failed"));
    EXPECT_EQ(PageEvaluation::word(V::None), QString());
}
