// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AxisRange.h"

#include <QVector>

namespace lorvane {

/// The tick marks of one axis: where they stand and in what unit they step, so that the place
/// that draws them can label them ("0.25", "14:30", "2026-11-23").
struct AxisTicks
{
    enum class Unit
    {
        Number,
        Millisecond,
        Second,
        Minute,
        Hour,
        Day,
        Month,
        Year,
    };
    Unit unit = Unit::Number;
    /// The distance between ticks in `unit` (a Number step is in axis values).
    double step = 0;
    /// Digits after the decimal point that tell Number ticks apart.
    int decimals = 0;
    /// Tick positions in axis values, ascending, inside the range.
    QVector<double> values;
};

/// Ticks at round steps: 1, 2 or 5 times a power of ten on a numeric axis; on a time axis
/// the steps of a clock and a calendar (1, 2, 5, 10, 15, 30 seconds or minutes, 1, 2, 3, 6, 12
/// hours, days, months at the start of a month, years). Time axis values are milliseconds of
/// wall-clock time counted from 1970-01-01 00:00 with no zone: meter time is never moved into
/// the PC's zone, so midnight ticks fall at the meter's midnight.
class NiceTicks
{
public:
    /// The smallest round step that cuts `span` into at most `maxTicks` intervals (0 for an
    /// empty or invalid span).
    static double step(double span, int maxTicks);
    /// At most `maxTicks` + 1 ticks over `range`; a range of zero span has the one tick.
    static AxisTicks linear(const AxisRange& range, int maxTicks);
    /// Ticks of a wall-clock time axis over `range` (milliseconds, see above).
    static AxisTicks time(const AxisRange& range, int maxTicks);
    /// Ticks of a logarithmic axis whose `range` is given in decades (log10 of the values):
    /// at whole decades, every second or fifth decade when more than `maxTicks` intervals
    /// would be needed; a range that holds fewer than three decades adds 2 and 5 times each
    /// decade, and then the other multiples 1 to 9, so that a zoomed axis keeps its ticks. The
    /// tick values are decades too (log10 2 for a tick at 2).
    static AxisTicks decades(const AxisRange& range, int maxTicks);
};

} // namespace lorvane
