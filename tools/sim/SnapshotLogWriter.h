// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "IntervalLogPlan.h"
#include "SimMeter.h"
#include "SimSchedule.h"

namespace lorvane::sim {

/// Writes an interval log as the meter keeps it: a master row per day with the hours that
/// hold records (`Hour_h` -1, `Recs_h` the instants of hour h), and per such hour a time
/// index table and a value table (one row per point and instant). Instants lie on the
/// interval grid from midnight; none are logged while the meter is without supply, and the
/// hours of that outage get no tables.
class SnapshotLogWriter
{
public:
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const IntervalLogPlan& plan,
                      const SimSchedule& schedule);
};

} // namespace lorvane::sim
