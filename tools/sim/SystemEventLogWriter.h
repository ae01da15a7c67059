// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimMeter.h"
#include "SimSchedule.h"

namespace lorvane::sim {

/// Writes the system event log (`AllSystemEventLogs`, `SystemEventLog_{n}`) in the meter's
/// event vocabulary: a log download every morning, a settings session and a clock change on
/// the first day, the power loss and restart of the outage, and the test mode window of the
/// last day (its events flagged `InTestMode`). Events of one instant are numbered by
/// `Sequence`; `EV0` holds the event class, `EV1` the entry within the class's list and
/// `EV2` the sequence.
class SystemEventLogWriter
{
public:
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const SimSchedule& schedule);
};

} // namespace lorvane::sim
