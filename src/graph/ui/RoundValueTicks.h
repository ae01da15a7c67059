// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QValueAxis;

namespace lorvane {

/// Keeps a value axis of a chart drawn outside the chart canvas on round 1-2-5 steps
/// (20 ms, 50 V, 25 %), anchored at zero, with as many decimals as the step needs; renewed
/// whenever a zoom, a scroll or new data changes the axis range.
struct RoundValueTicks
{
    /// At most `maxTicks` intervals over the axis's range from now on.
    static void follow(QValueAxis* axis, int maxTicks);
};

} // namespace lorvane
