// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/GraphSelection.h"
#include "trend/TrendRequest.h"

#include <functional>

class QWidget;

namespace lorvane {

struct RunContext;

/// Makes the trend window known to the log grid's &Graph for the snapshot and demand views,
/// and opens the historical overview that leads to it.
class TrendGraphMaker
{
public:
    static void add(RunContext& context);
    /// The request of a hand-over: one row per data column of the grid (`DataID`, the meter's
    /// `DbPath`, `DeviceTypeID`, `Meter` from 0) with the query's `From` and `To`.
    static TrendRequest request(const GraphSelection& selection);
    /// The historical overview window over `meterPath` (empty: the user names the file), its
    /// analysis loaded when the file has one; "View" opens the trend, handed to `show`.
    static QWidget* overview(RunContext& context, const QString& meterPath,
                             const std::function<void(QWidget*)>& show);
};

} // namespace lorvane
