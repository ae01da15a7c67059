// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/NiceTicks.h"

#include <QString>

namespace lorvane {

/// The texts of axis ticks and of values read off an axis. Wall-clock values are meter time
/// with no zone: they are turned into text as UTC clock readings, never through the PC's zone.
class TickLabels
{
public:
    /// The label of tick `value` of `ticks` on an axis showing `range`.
    static QString tick(const AxisTicks& ticks, double value, const AxisRange& range);
    /// A value read at the cursor or under the pointer: numbers with six significant digits,
    /// wall-clock values as date and time to the millisecond.
    static QString value(double value, bool wallClock);
};

} // namespace lorvane
