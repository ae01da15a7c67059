// SPDX-License-Identifier: GPL-3.0-or-later
// Axis ticks at round steps, numeric and wall-clock.
#include "graph/NiceTicks.h"

#include <QDateTime>
#include <cmath>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

/// Wall-clock milliseconds of a meter time text: the clock reading held as UTC, no zone.
double wallMs(const char* text)
{
    QDateTime time = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
    time.setTimeSpec(Qt::UTC);
    return double(time.toMSecsSinceEpoch());
}

} // namespace

TEST(NiceTicks, NumericStepsAreOneTwoOrFiveTimesAPowerOfTen)
{
    struct Case
    {
        AxisRange range;
        int maxTicks;
        double step;
        int decimals;
        QVector<double> values;
    };
    const Case cases[] = {
        {{0, 10}, 5, 2, 0, {0, 2, 4, 6, 8, 10}},
        {{-0.37, 0.81}, 6, 0.2, 1, {-0.2, 0, 0.2, 0.4, 0.6, 0.8}},
        {{3, 3.0004}, 4, 0.0001, 4, {3, 3.0001, 3.0002, 3.0003, 3.0004}},
        {{-1200, 47000}, 7, 10000, 0, {0, 10000, 20000, 30000, 40000}},
        {{0.1, 0.3}, 2, 0.1, 1, {0.1, 0.2, 0.3}},
        {{7, 7}, 5, 0, 0, {7}},
    };
    for (const Case& c : cases) {
        const AxisTicks ticks = NiceTicks::linear(c.range, c.maxTicks);
        SCOPED_TRACE(testing::Message() << c.range.min << " to " << c.range.max);
        EXPECT_DOUBLE_EQ(ticks.step, c.step);
        EXPECT_EQ(ticks.decimals, c.decimals);
        ASSERT_EQ(ticks.values.size(), c.values.size());
        for (qsizetype i = 0; i < c.values.size(); ++i)
            EXPECT_NEAR(ticks.values[i], c.values[i], 1e-12);
    }
    // Whatever the span, the step is round and the count bounded.
    for (double span = 1e-6; span < 1e9; span *= 3.7) {
        const AxisTicks ticks = NiceTicks::linear({-span / 3, span}, 8);
        const double mantissa = ticks.step / std::pow(10.0, std::floor(std::log10(ticks.step)));
        EXPECT_TRUE(std::abs(mantissa - 1) < 1e-9 || std::abs(mantissa - 2) < 1e-9 ||
                    std::abs(mantissa - 5) < 1e-9)
            << span;
        EXPECT_LE(ticks.values.size(), 9) << span;
        EXPECT_GE(ticks.values.size(), 3) << span; // a step is at most 2.5 times the least
    }
    EXPECT_TRUE(NiceTicks::linear({1, 0}, 5).values.isEmpty());
    EXPECT_TRUE(NiceTicks::linear({0, std::nan("")}, 5).values.isEmpty());
}

TEST(NiceTicks, TimeTicksFollowTheClockAndCalendarOfTheMeter)
{
    using Unit = AxisTicks::Unit;
    struct Case
    {
        const char* from;
        const char* to;
        int maxTicks;
        Unit unit;
        double step;
        const char* firstTick;
        int count;
    };
    const Case cases[] = {
        {"2026-03-29T01:59:59.990", "2026-03-29T02:00:00.030", 4, Unit::Millisecond, 10,
         "2026-03-29T01:59:59.990", 5},
        {"2026-03-29T01:00:07", "2026-03-29T01:01:00", 5, Unit::Second, 15, "2026-03-29T01:00:15",
         4},
        {"2026-03-29T00:50:00", "2026-03-29T03:10:00", 5, Unit::Minute, 30, "2026-03-29T01:00:00",
         5},
        {"2026-10-25T00:00:00", "2026-10-26T00:00:00", 6, Unit::Hour, 6, "2026-10-25T00:00:00", 5},
        {"2026-01-01T12:00:00", "2026-01-11T00:00:00", 6, Unit::Day, 2, "2026-01-03T00:00:00", 5},
        {"2026-01-15T00:00:00", "2026-12-20T00:00:00", 6, Unit::Month, 3, "2026-04-01T00:00:00", 3},
        {"2003-05-01T00:00:00", "2026-01-01T00:00:00", 6, Unit::Year, 5, "2005-01-01T00:00:00", 5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.from);
        const AxisTicks ticks = NiceTicks::time({wallMs(c.from), wallMs(c.to)}, c.maxTicks);
        EXPECT_EQ(ticks.unit, c.unit);
        EXPECT_DOUBLE_EQ(ticks.step, c.step);
        ASSERT_EQ(ticks.values.size(), c.count);
        EXPECT_DOUBLE_EQ(ticks.values.first(), wallMs(c.firstTick));
        EXPECT_LE(ticks.values.size(), c.maxTicks + 1);
    }
    // Times no calendar holds give no ticks (and no endless walk over invalid dates).
    EXPECT_TRUE(NiceTicks::time({-1e17, 0}, 5).values.isEmpty());
    EXPECT_TRUE(NiceTicks::time({0, 1e300}, 5).values.isEmpty());
}

TEST(NiceTicks, LogarithmicAxesTickAtDecadesAndTheirMultiplesWhenZoomed)
{
    struct Case
    {
        const char* name;
        AxisRange range;
        int maxTicks;
        QVector<double> values; ///< as 10^value
    };
    const Case cases[] = {
        {"1 us to 100 s", {-6, 2}, 10, {1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1, 10, 100}},
        {"narrow: every second decade", {-6, 2}, 4, {1e-6, 1e-4, 1e-2, 1, 100}},
        {"between decades", {-3.5, -1.2}, 8, {5e-4, 1e-3, 2e-3, 5e-3, 1e-2, 2e-2, 5e-2}},
        {"inside one decade", {std::log10(2.5), std::log10(7.5)}, 8, {3, 4, 5, 6, 7}},
    };
    for (const Case& c : cases) {
        const AxisTicks ticks = NiceTicks::decades(c.range, c.maxTicks);
        ASSERT_EQ(ticks.values.size(), c.values.size()) << c.name;
        for (int i = 0; i < c.values.size(); ++i)
            EXPECT_NEAR(std::pow(10.0, ticks.values[i]), c.values[i], c.values[i] * 1e-9) << c.name;
    }
}
