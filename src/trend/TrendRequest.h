// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "store/LogKind.h"

#include <QDateTime>
#include <QList>

namespace lorvane {

/// What a trend loads: the used meters as the selection hands them over (one or two; a
/// split-log meter's files are found from its entry), the data points in selection order and
/// the range, both ends included (wall-clock readings), and the hourly log they are read
/// from: the snapshots, or energy and demand.
struct TrendRequest
{
    QList<LogFileEntry> meters;
    QList<qint32> dataIds;
    QDateTime from;
    QDateTime to;
    LogKind log = LogKind::Snapshots;
};

} // namespace lorvane
