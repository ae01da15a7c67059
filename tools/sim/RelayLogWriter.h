// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LimitEvents.h"
#include "SimMeter.h"
#include "SimSchedule.h"

namespace lorvane::sim {

/// Writes the relay settings (`RelayLogDataItem`, setting index 1, module 0) and the relay
/// log (`AllRelayLogs`, `RelayLog_{n}`). Relay 0 "Load Shed" trips through gate A (AND) of
/// the phase a current limit and the closed main breaker; relay 1 "Undervoltage Alarm" trips
/// through gates A and E (OR) of the three low voltage limits; relay 2 "Feeder Lockout" (a
/// hysteresis relay with every gate type) trips twice a day, once locked (RelayLogicPlan).
/// Each trip has trigger, command (after the set delay) and acknowledge stamps, the input and
/// gate states of its setting, and a `GIndex` unique in the file. One
/// record of a module without settings (module 1) is written on purpose at noon of the
/// first day: views that join the settings drop it.
class RelayLogWriter
{
public:
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const LimitEvents& limits,
                      const SimSchedule& schedule);
};

} // namespace lorvane::sim
