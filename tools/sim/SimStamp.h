// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace lorvane::sim {

/// A stamp of an event log: a whole second of the simulator's clock and the thousandths of
/// that second.
struct SimStamp
{
    qint64 second = 0;
    int ms = 0;

    /// The stamp `milliseconds` later (rounded to whole thousandths).
    SimStamp plus(double milliseconds) const
    {
        const qint64 total = second * 1000 + ms + static_cast<qint64>(milliseconds + 0.5);
        return {total / 1000, static_cast<int>(total % 1000)};
    }
    /// Milliseconds from this stamp to `later`.
    double until(const SimStamp& later) const
    {
        return static_cast<double>((later.second - second) * 1000 + later.ms - ms);
    }
    bool operator<(const SimStamp& o) const
    {
        return second != o.second ? second < o.second : ms < o.ms;
    }
};

} // namespace lorvane::sim
