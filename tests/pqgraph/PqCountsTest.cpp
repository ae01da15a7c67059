// SPDX-License-Identifier: GPL-3.0-or-later
// Binning of events into the 21 x 23 count matrix and the table of sums.
#include "pqgraph/PqCounts.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

struct BinCase
{
    const char* name;
    double seconds;
    double percent;
    int magnitudeBin; ///< 0: not counted
    int durationBin;
};

TEST(PqCounts, BinEventPutsEdgesInTheUpperBin)
{
    const BinCase cases[] = {
        {"half cycle edge", 0.008333, 50, 6, 2},
        {"just under the half cycle", 0.008332, 50, 6, 1},
        {"one second", 1.0, 95, 10, 13},
        {"833.33 ms starts bin 12", 0.83333, 95, 10, 12},
        {"200 percent", 0.05, 200, 21, 5},
        {"199.99 percent", 0.05, 199.99, 20, 5},
        {"0 percent", 0.05, 0, 1, 5},
        {"100 s", 100, 10, 2, 23},
        {"just under 100 s", 99.999, 10, 2, 22},
        {"zero duration", 0, 50, 0, 0},
        {"negative magnitude", 0.1, -1, 0, 0},
    };
    for (const BinCase& c : cases) {
        PqCounts::Matrix matrix{};
        const bool counted = PqCounts::BinEvent(matrix, c.seconds, c.percent);
        EXPECT_EQ(counted, c.magnitudeBin > 0) << c.name;
        qint64 total = 0;
        for (int m = 0; m < PqCounts::magnitudeBins; ++m) {
            for (int d = 0; d < PqCounts::durationBins; ++d) {
                total += matrix[m][d];
                if (matrix[m][d] != 0) {
                    EXPECT_TRUE(m + 1 == c.magnitudeBin && d + 1 == c.durationBin)
                        << c.name << ": counted in " << m + 1 << "/" << d + 1;
                }
            }
        }
        EXPECT_EQ(total, counted ? 1 : 0) << c.name;
    }
}

TEST(PqCounts, BuildCountsRunsTheCumulativeSumAndLeavesPercentEmptyWithoutEvents)
{
    PqCounts::Matrix matrix{};
    const PqCounts::Sums none = PqCounts::BuildCounts(matrix);
    for (const PqCounts::Sum& sum : none) {
        EXPECT_EQ(sum.count, 0);
        EXPECT_FALSE(sum.cumulativePercent.has_value());
    }

    // Three events in magnitude bin 1 over two duration bins, one in bin 9.
    matrix[0][0] = 2;
    matrix[0][22] = 1;
    matrix[8][4] = 1;
    const PqCounts::Sums sums = PqCounts::BuildCounts(matrix);
    EXPECT_EQ(sums[0].count, 3);
    EXPECT_EQ(sums[0].cumulative, 3);
    EXPECT_DOUBLE_EQ(*sums[0].cumulativePercent, 75.0);
    EXPECT_EQ(sums[7].cumulative, 3);
    EXPECT_EQ(sums[8].count, 1);
    EXPECT_DOUBLE_EQ(*sums[8].cumulativePercent, 100.0);
    EXPECT_EQ(sums[20].cumulative, 4);
}

TEST(PqCounts, LabelsCoverEveryBin)
{
    ASSERT_EQ(PqCounts::durationLabels().size(), PqCounts::durationBins);
    ASSERT_EQ(PqCounts::magnitudeLabels().size(), PqCounts::magnitudeBins);
    EXPECT_EQ(PqCounts::magnitudeLabels().at(19), QStringLiteral("190 to 200"));
    EXPECT_EQ(PqCounts::magnitudeLabels().last(), QStringLiteral("> 200"));
}

} // namespace
