// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimMeter.h"
#include "SimSchedule.h"

namespace lorvane::sim {

/// Writes the flicker log (`AllFlickerLogs`, `Flicker_MaxMin_{n}`): one record per six-hour
/// block (00-06, 06-12, 12-18, 18-24) with the maximum and minimum short-term value of each
/// phase over the block's 10-minute intervals and of the long-term value over its 2-hour
/// windows, each stamped with the end of its interval. Intervals of the outage are skipped.
class FlickerLogWriter
{
public:
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const SimSchedule& schedule);
};

} // namespace lorvane::sim
