// SPDX-License-Identifier: GPL-3.0-or-later
// The level-of-detail pyramid must draw exactly what the full scan draws, for any zoom.
#include "graph/SeriesPyramid.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace lorvane;

namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

/// A random walk with repeated values (ties) and, when asked, runs of NaN (gaps), sampled at
/// uneven times with now and then a long pause, so that columns hold very different counts.
std::pair<QVector<float>, QVector<float>> randomSeries(int count, unsigned seed, bool gaps)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> stepOf(-3, 3);
    std::uniform_int_distribution<int> gapOf(0, 400);
    QVector<float> x(count);
    QVector<float> y(count);
    int level = 0;
    double time = 0;
    for (int i = 0; i < count; ++i) {
        time += gapOf(random) == 0 ? 500.0 : 0.25 * (1 + std::abs(stepOf(random)));
        x[i] = static_cast<float>(time);
        level += stepOf(random);
        y[i] = static_cast<float>(level);
    }
    for (int i = 0; gaps && i < count; ++i) {
        if (gapOf(random) == 0)
            for (int end = std::min(count, i + 1 + gapOf(random)); i < end; ++i)
                y[i] = nan;
    }
    return {x, y};
}

bool samePoints(const QList<QPointF>& a, const QList<QPointF>& b)
{
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        const bool bothNan = std::isnan(a[i].y()) && std::isnan(b[i].y());
        if (a[i].x() != b[i].x() || (!bothNan && a[i].y() != b[i].y()))
            return false;
    }
    return true;
}

/// The plain definition, sample by sample: the visible samples (one beyond each end), and when
/// there are more than four a column, per column its first, lowest, highest and last sample.
QList<QPointF> bruteForce(const QVector<float>& x, const QVector<float>& y, double xMin,
                          double xMax, int columns)
{
    QList<int> visible;
    for (int i = 0; i < x.size(); ++i) {
        const bool before = i + 1 < x.size() && x[i + 1] < xMin;
        const bool after = i > 0 && x[i - 1] > xMax;
        if (!before && !after && !(x.last() < xMin) && !(x.first() > xMax))
            visible << i;
    }
    QList<QPointF> out;
    const bool whole = visible.size() <= 4 * columns;
    QList<int> group;
    auto flush = [&] {
        if (group.isEmpty())
            return;
        int low = group.first();
        int high = group.first();
        for (int i : group) {
            if (!std::isnan(y[i]) && (std::isnan(y[low]) || y[i] < y[low]))
                low = i;
            if (!std::isnan(y[i]) && (std::isnan(y[high]) || y[i] > y[high]))
                high = i;
        }
        QList<int> picks{group.first(), std::min(low, high), std::max(low, high), group.last()};
        picks.erase(std::unique(picks.begin(), picks.end()), picks.end());
        for (int i : picks)
            out << QPointF(x[i], y[i]);
        group.clear();
    };
    int column = std::numeric_limits<int>::min();
    for (int i : visible) {
        const int own =
            std::clamp(static_cast<int>((x[i] - xMin) / ((xMax - xMin) / columns)), -1, columns);
        if (whole || own != column)
            flush();
        column = own;
        group << i;
    }
    flush();
    return out;
}

} // namespace

TEST(SeriesPyramid, ZoomsDrawWhatTheFullScanDraws)
{
    struct Case
    {
        int count;
        double from; // fraction of the x span
        double to;
        int columns;
        bool gaps;
    };
    const Case cases[] = {
        {0, 0, 1, 100, false},
        {1, 0, 1, 100, false},
        {63, 0, 1, 4, false},
        {64, 0, 1, 3, false},
        {65, 0.1, 0.9, 2, true},
        {1000, 0, 1, 50, false},
        {1000, 0.3, 0.31, 800, true},
        {5000, -0.5, 0.2, 120, true},
        {5000, 0.8, 1.7, 333, false},
        {100003, 0, 1, 1920, true},
        {100003, 0.4, 0.45, 640, false},
        {262144, 0, 1, 1, true},
        {262144, 0.001, 0.999, 1000, true},
        {7777, 1.5, 2.0, 100, false},
    };
    unsigned seed = 1;
    for (const Case& c : cases) {
        const auto [x, y] = randomSeries(c.count, seed++, c.gaps);
        const SeriesPyramid<float> pyramid(x, y);
        const double span = c.count > 0 ? x.last() : 1.0;
        const double xMin = c.from * span;
        const double xMax = c.to * span;
        SCOPED_TRACE(testing::Message() << c.count << " samples, " << xMin << " to " << xMax << ", "
                                        << c.columns << " columns");
        const QList<QPointF> expected = bruteForce(x, y, xMin, xMax, c.columns);
        EXPECT_TRUE(samePoints(SeriesDecimation::decimate(x, y, xMin, xMax, c.columns), expected));
        EXPECT_TRUE(samePoints(pyramid.points(xMin, xMax, c.columns), expected));
        EXPECT_LE(expected.size(), 4 * c.columns + 8);
    }
}

TEST(SeriesPyramid, ExtremesOfAnyStretchMatchTheScan)
{
    const auto [x, y] = randomSeries(20000, 99, true);
    const SeriesPyramid<float> pyramid(x, y);
    EXPECT_GT(pyramid.levels(), 7);
    std::mt19937 random(5);
    std::uniform_int_distribution<int> indexOf(0, 19999);
    for (int round = 0; round < 2000; ++round) {
        int first = indexOf(random);
        int last = indexOf(random);
        if (first > last)
            std::swap(first, last);
        const SeriesDecimation::Extremes scanned = SeriesDecimation::scan(y, first, last);
        const SeriesDecimation::Extremes fast = pyramid.extremes(first, last);
        ASSERT_EQ(fast.lowest, scanned.lowest) << first << ".." << last;
        ASSERT_EQ(fast.highest, scanned.highest) << first << ".." << last;
    }
}

TEST(SeriesPyramid, RangesAndNearestSampleAtTheEdges)
{
    const QVector<double> x{0, 1, 2, 3, 4, 5};
    const QVector<double> y{std::nan(""), 4, -2, std::nan(""), 7, 1};
    const SeriesPyramid<double> pyramid(x, y);
    ASSERT_TRUE(pyramid.xRange().has_value());
    EXPECT_EQ(*pyramid.xRange(), (AxisRange{0, 5}));
    // One sample beyond each end counts, as it is drawn; NaN never scales the axis.
    EXPECT_EQ(pyramid.yRange(1.5, 2.5), (AxisRange{-2, 4}));
    EXPECT_EQ(pyramid.yRange(-1, 9), (AxisRange{-2, 7}));
    EXPECT_FALSE(pyramid.yRange(6, 9).has_value());
    EXPECT_FALSE(SeriesPyramid<double>({0}, {std::nan("")}).yRange(0, 1).has_value());

    const std::pair<double, QPointF> near[] = {
        {-10, {0, std::nan("")}}, {1.4, {1, 4}}, {1.5, {1, 4}}, {1.6, {2, -2}}, {99, {5, 1}}};
    for (const auto& [at, expected] : near) {
        const std::optional<QPointF> found = pyramid.sampleNear(at);
        ASSERT_TRUE(found.has_value());
        EXPECT_EQ(found->x(), expected.x()) << at;
    }
    EXPECT_FALSE(SeriesPyramid<float>().sampleNear(1).has_value());
    EXPECT_TRUE(SeriesPyramid<float>().points(0, 1, 10).isEmpty());
    // Arrays of different lengths use the shorter.
    EXPECT_EQ(SeriesPyramid<double>(x, y.first(3)).size(), 3);
}
