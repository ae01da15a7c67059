// SPDX-License-Identifier: GPL-3.0-or-later
#include "NiceTicks.h"

#include <QDate>
#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

using Unit = AxisTicks::Unit;

constexpr double msPerSecond = 1000;
constexpr double msPerMinute = 60 * msPerSecond;
constexpr double msPerHour = 60 * msPerMinute;
constexpr double msPerDay = 24 * msPerHour;
/// Relative slack for steps that land a rounding error beside a range end.
constexpr double slack = 1e-9;

struct ClockStep
{
    Unit unit;
    int count;
    double unitMs;
};

// The clock's steps in ascending length; below a second the numeric 1-2-5 steps apply.
constexpr ClockStep clockSteps[] = {
    {Unit::Second, 1, msPerSecond},  {Unit::Second, 2, msPerSecond},
    {Unit::Second, 5, msPerSecond},  {Unit::Second, 10, msPerSecond},
    {Unit::Second, 15, msPerSecond}, {Unit::Second, 30, msPerSecond},
    {Unit::Minute, 1, msPerMinute},  {Unit::Minute, 2, msPerMinute},
    {Unit::Minute, 5, msPerMinute},  {Unit::Minute, 10, msPerMinute},
    {Unit::Minute, 15, msPerMinute}, {Unit::Minute, 30, msPerMinute},
    {Unit::Hour, 1, msPerHour},      {Unit::Hour, 2, msPerHour},
    {Unit::Hour, 3, msPerHour},      {Unit::Hour, 6, msPerHour},
    {Unit::Hour, 12, msPerHour},     {Unit::Day, 1, msPerDay},
    {Unit::Day, 2, msPerDay},        {Unit::Day, 5, msPerDay},
    {Unit::Day, 10, msPerDay},
};
constexpr int monthSteps[] = {1, 2, 3, 6};

const QDate& epoch()
{
    static const QDate day(1970, 1, 1);
    return day;
}

QDate dateOf(double ms)
{
    return epoch().addDays(static_cast<qint64>(std::floor(ms / msPerDay)));
}

double msOf(const QDate& date)
{
    return static_cast<double>(epoch().daysTo(date)) * msPerDay;
}

/// Multiples of `step` inside [min, max].
QVector<double> multiples(const AxisRange& range, double step)
{
    QVector<double> values;
    const double first = std::ceil(range.min / step - slack);
    const double last = std::floor(range.max / step + slack);
    for (double k = first; k <= last; ++k)
        values << (k == 0 ? 0.0 : k * step);
    return values;
}

/// The first day of every `months`-th month (counted from January of year 0) in the range.
QVector<double> monthStarts(const AxisRange& range, int months)
{
    QVector<double> values;
    const QDate from = dateOf(range.min);
    int index = from.year() * 12 + from.month() - 1;
    index += (months - index % months) % months;
    for (;; index += months) {
        const double ms = msOf(QDate(index / 12, index % 12 + 1, 1));
        if (ms > range.max)
            break;
        if (ms >= range.min)
            values << ms;
    }
    return values;
}

bool valid(const AxisRange& range)
{
    return std::isfinite(range.min) && std::isfinite(range.max) && range.max >= range.min;
}

} // namespace

double NiceTicks::step(double span, int maxTicks)
{
    if (!std::isfinite(span) || span <= 0 || maxTicks < 1)
        return 0;
    const double raw = span / maxTicks;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double multiple : {1.0, 2.0, 5.0})
        if (multiple * power >= raw * (1 - slack))
            return multiple * power;
    return 10 * power;
}

AxisTicks NiceTicks::linear(const AxisRange& range, int maxTicks)
{
    AxisTicks ticks;
    if (!valid(range))
        return ticks;
    ticks.step = step(range.span(), maxTicks);
    if (ticks.step == 0) {
        ticks.values = {range.min};
        return ticks;
    }
    ticks.values = multiples(range, ticks.step);
    ticks.decimals = std::max(0, static_cast<int>(-std::floor(std::log10(ticks.step) + slack)));
    return ticks;
}

AxisTicks NiceTicks::time(const AxisRange& range, int maxTicks)
{
    // The calendar steps walk dates: a range outside the years 1 to 9999 has none to walk.
    static const AxisRange calendar{msOf(QDate(1, 1, 1)), msOf(QDate(9999, 12, 31))};
    if (!valid(range) || maxTicks < 1 || range.min < calendar.min || range.max > calendar.max)
        return {};
    const double raw = range.span() / maxTicks;
    if (raw < msPerSecond) {
        AxisTicks ticks = linear(range, maxTicks);
        ticks.unit = Unit::Millisecond;
        return ticks;
    }
    for (const ClockStep& clock : clockSteps) {
        const double stepMs = clock.count * clock.unitMs;
        if (stepMs >= raw)
            return {clock.unit, double(clock.count), 0, multiples(range, stepMs)};
    }
    // Months are 28 to 31 days: a step is chosen by the shortest so the count stays bounded.
    for (const int months : monthSteps) {
        if (months * 28 * msPerDay >= raw)
            return {Unit::Month, double(months), 0, monthStarts(range, months)};
    }
    const double years = std::max(1.0, step(range.span() / (365 * msPerDay), maxTicks));
    return {Unit::Year, years, 0, monthStarts(range, static_cast<int>(years) * 12)};
}

AxisTicks NiceTicks::decades(const AxisRange& range, int maxTicks)
{
    AxisTicks ticks;
    ticks.unit = Unit::Number;
    ticks.step = 1;
    if (!(range.span() >= 0) || !std::isfinite(range.min) || !std::isfinite(range.max))
        return ticks;
    const double first = std::ceil(range.min - slack);
    const double last = std::floor(range.max + slack);
    const int whole = last >= first ? int(last - first) + 1 : 0;
    if (whole >= 3) {
        const int every = whole - 1 <= std::max(1, maxTicks) ? 1
                          : whole - 1 <= 2 * maxTicks        ? 2
                                                             : 5;
        ticks.step = every;
        for (double e = std::ceil(first / every) * every; e <= last; e += every)
            ticks.values << e;
        return ticks;
    }
    // Within a few decades the multiples of each decade stand in for the missing ones.
    const QVector<QVector<int>> multiples{{1, 2, 5}, {1, 2, 3, 4, 5, 6, 7, 8, 9}};
    for (const QVector<int>& set : multiples) {
        ticks.values.clear();
        for (double e = std::floor(range.min); e <= range.max; ++e) {
            for (const int m : set) {
                const double value = e + std::log10(double(m));
                if (value >= range.min - slack && value <= range.max + slack)
                    ticks.values << value;
            }
        }
        if (ticks.values.size() >= 3)
            break;
    }
    return ticks;
}

} // namespace lorvane
