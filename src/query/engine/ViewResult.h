// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GridTable.h"
#include "QueryCatalog.h"
#include "store/LogKind.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace lorvane {

/// What one press of a view button (or one page step) gives the log grid window.
struct ViewResult
{
    LogKind logKind = LogKind::DatabaseStatus;
    /// The window's grids 0 to 3, by the kind's own order (the log in 0, details after).
    QList<GridTable> grids;
    QueryNumbers numbers;
    /// The range label: the effective range read, or "No data found: {start} to {end}".
    QString rangeText;
    QDateTime effectiveStart;
    QDateTime effectiveEnd;
    qint64 rowsRead = 0;
    bool noData = false;
    bool cancelled = false;
    /// Page number (first slice 1), pages read so far, and whether the last slice reached
    /// the end of the range.
    int page = 1;
    int pages = 1;
    bool allRead = true;
};

} // namespace lorvane
