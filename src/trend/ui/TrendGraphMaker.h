// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/GraphSelection.h"
#include "trend/TrendRequest.h"

namespace lorvane {

struct RunContext;

/// Makes the trend window known to the log grid's &Graph for the snapshot and demand views.
class TrendGraphMaker
{
public:
    static void add(RunContext& context);
    /// The request of a hand-over: one row per data column of the grid (`DataID`, the meter's
    /// `DbPath`, `DeviceTypeID`, `Meter` from 0) with the query's `From` and `To`.
    static TrendRequest request(const GraphSelection& selection);
};

} // namespace lorvane
