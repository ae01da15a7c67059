// SPDX-License-Identifier: GPL-3.0-or-later
// Thinning a long series for a chart: extremes survive, the visible range is found exactly.
#include "graph/SeriesDecimation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

QVector<float> axis(int count, float step)
{
    QVector<float> x(count);
    for (int i = 0; i < count; ++i)
        x[i] = i * step;
    return x;
}

} // namespace

TEST(SeriesDecimation, VisibleRangeKeepsOneSampleBeyondEachEnd)
{
    const QVector<float> x = axis(100, 0.5F);
    struct Case
    {
        QVector<float> x;
        double from;
        double to;
        std::pair<int, int> range;
    };
    const Case cases[] = {
        {x, 10.0, 20.0, {19, 41}},  {x, 10.2, 19.9, {20, 40}}, {x, -5.0, 100.0, {0, 99}},
        {x, 60.0, 70.0, {0, -1}},   {x, 20.0, 10.0, {0, -1}},  {{}, 0.0, 1.0, {0, -1}},
        {{3.0F}, 0.0, 5.0, {0, 0}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SeriesDecimation::visibleRange(c.x, c.from, c.to), c.range) << c.from;
}

TEST(SeriesDecimation, KeepsFirstMinMaxLastPerColumn)
{
    const int count = 100000;
    const QVector<float> x = axis(count, 0.01F);
    QVector<float> y(count);
    for (int i = 0; i < count; ++i)
        y[i] = std::sin(i * 0.05F);
    y[54321] = 9.0F; // a spike the chart must still show
    y[777] = -7.0F;

    const QList<QPointF> points = SeriesDecimation::decimate(x, y, x.first(), x.last(), 200);
    EXPECT_LE(points.size(), 4 * 200 + 8);
    EXPECT_GE(points.size(), 200);
    const auto [lo, hi] =
        std::minmax_element(points.cbegin(), points.cend(),
                            [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
    EXPECT_FLOAT_EQ(hi->y(), 9.0F);
    EXPECT_FLOAT_EQ(hi->x(), x[54321]);
    EXPECT_FLOAT_EQ(lo->y(), -7.0F);
    EXPECT_EQ(points.first().x(), x.first());
    EXPECT_EQ(points.last().x(), x.last());
    EXPECT_TRUE(std::is_sorted(points.cbegin(), points.cend(),
                               [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); }));
}

TEST(SeriesDecimation, ShortRangesComeBackWholeAndAZoomOnlyItsSamples)
{
    const QVector<float> x = axis(1000, 1.0F);
    QVector<float> y(1000, 1.0F);
    const QList<QPointF> zoomed = SeriesDecimation::decimate(x, y, 100.0, 150.0, 800);
    ASSERT_EQ(zoomed.size(), 53);
    EXPECT_EQ(zoomed.first().x(), 99.0);
    EXPECT_EQ(zoomed.last().x(), 151.0);
    // Arrays of different lengths use the shorter one; zero columns count as one.
    EXPECT_LE(SeriesDecimation::decimate(x, y.first(10), 0, 1000, 0).size(), 10);
}
