// SPDX-License-Identifier: GPL-3.0-or-later
// Bar heights against their totals, the texts printed on bars, and the id list of the daily
// series.
#include "en50160/ChartBars.h"

#include "StatisticsBuilder.h"
#include "en50160/DailySeries.h"

#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::Bins;
using lorvane::test::statistics;

TEST(ChartBars, EachChartDividesByItsTotal)
{
    const PqTestStatistics s = statistics({{Bins::n1, 200},
                                           {Bins::n2, 400},
                                           {Bins::n3, 50},
                                           {Bins::frequency(9), 1},
                                           {Bins::slow(1, 4), 100},
                                           {Bins::fast(2, 5), 4},
                                           {Bins::flicker(0, 1), 5},
                                           {Bins::unbalance(2), 400},
                                           {Bins::thd(1), 2},
                                           {Bins::harmonic(2, 13), 40},
                                           {Bins::harmonic(0, 14), 1}});
    struct Case
    {
        ChartBars::Chart chart;
        int series;
        int bins;
        int line;
        int bin;
        float value;
    };
    using C = ChartBars::Chart;
    const Case cases[] = {
        {C::FRE, 1, 10, 0, 9, 0.5f},    {C::LSV, 3, 5, 1, 4, 25.0f},  {C::FVF, 3, 6, 2, 5, 1.0f},
        {C::FLI, 3, 2, 0, 1, 10.0f},    {C::SVU, 1, 3, 0, 2, 100.0f}, {C::THD, 3, 1, 1, 0, 0.5f},
        {C::HARF, 3, 12, 2, 11, 10.0f}, {C::HAR, 3, 12, 0, 0, 0.25f},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(int(c.chart));
        const auto bars = ChartBars::bars(c.chart, s);
        ASSERT_TRUE(bars.has_value());
        ASSERT_EQ(bars->size(), c.series);
        float sum = 0;
        for (const QList<float>& line : *bars) {
            ASSERT_EQ(line.size(), c.bins);
            for (float v : line)
                sum += v;
        }
        EXPECT_FLOAT_EQ(bars->at(c.line).at(c.bin), c.value);
        EXPECT_FLOAT_EQ(sum, c.value); // the one count set is the only bar
    }
    // A zero total fails the chart instead of drawing infinite bars.
    EXPECT_FALSE(ChartBars::bars(C::FLI, statistics({{Bins::n1, 1}, {Bins::n2, 1}})));
    EXPECT_TRUE(ChartBars::bars(C::FRE, statistics({{Bins::n1, 1}})));
}

TEST(ChartBars, BarTextsKeepOneDecimalAndSmallValuesReadBelowATenth)
{
    const std::pair<float, const char*> cases[] = {
        {95.83333f, "95.8"}, {100.0f, "100"},     {0.0f, "0"},      {0.05f, "0.0"},
        {0.0001f, "0.0"},    {0.00001f, "< 0.1"}, {12.96f, "12.9"}, {7.0f / 3, "2.3"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(ChartBars::barText(value), QString::fromLatin1(text)) << value;
}

TEST(DailySeries, IdListTakesTheFixedIdsUpToTheFirstZero)
{
    EXPECT_EQ(DailySeriesReader::idList({}), QStringLiteral("(0)"));
    EXPECT_EQ(DailySeriesReader::idList({1, 2, 3}), QStringLiteral("(0)"));
    EXPECT_EQ(DailySeriesReader::idList({30077, 5, 30001, 30081, 30082}),
              QStringLiteral("(0,30077,30001,30082)"));
    EXPECT_EQ(DailySeriesReader::idList({30001, 0, 30002}), QStringLiteral("(0,30001)"));
    QList<qint64> long_(128, 7);
    long_ << 30003;
    EXPECT_EQ(DailySeriesReader::idList(long_), QStringLiteral("(0)"));
    long_[127] = 30003;
    EXPECT_EQ(DailySeriesReader::idList(long_), QStringLiteral("(0,30003)"));
}
