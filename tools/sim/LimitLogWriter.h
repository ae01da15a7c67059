// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LimitEvents.h"
#include "SimMeter.h"

namespace lorvane::sim {

/// Writes the limit sets (`LimitsLogDataItem`) and the limit log (`AllLimitsLogs`,
/// `LimitsLog_{n}`): one record per event, duration in seconds, `LState` "Below" or
/// "Above", `LValue` the extreme reached, `DescriptionCode` the limit number.
class LimitLogWriter
{
public:
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const LimitEvents& limits);
};

} // namespace lorvane::sim
