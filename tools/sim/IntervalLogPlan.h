// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/LogKind.h"

#include <QList>

namespace lorvane::sim {

/// One interval log: snapshots (`AllHistoricalLogs`) or energy and demand
/// (`AllEnergyDemandLogs`), the points it logs, how often, and its record types.
struct IntervalLogPlan
{
    LogKind kind = LogKind::Snapshots;
    QList<qint32> points;
    int intervalMinutes = 15;
    int typeId = 2;      ///< snapshot type of an ordinary record ("Log 1")
    int testTypeId = 12; ///< type of a record logged in test mode ("Test Mode (Log 1)")
};

} // namespace lorvane::sim
