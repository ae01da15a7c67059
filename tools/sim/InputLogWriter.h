// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimMeter.h"
#include "SimSchedule.h"

namespace lorvane::sim {

/// Writes the status input settings (`InputLogDataItem`, setting index 1, module 0, inputs
/// 0 to 3) and the input log (`AllInputLogs`, `InputLog_{n}`): the main breaker opening for
/// the outage, the door opened every morning, the transfer switch exercised over the first
/// midnight, an alarm reset pulse every afternoon. Durations in milliseconds.
class InputLogWriter
{
public:
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const SimSchedule& schedule);
};

} // namespace lorvane::sim
