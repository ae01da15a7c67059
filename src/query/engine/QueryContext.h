// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LogFileEntry.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;
class TempQueryDatabase;

/// Everything a view's loader and grid filler need: where to copy to, what to read, and the
/// settings that shape the cells. The log grid window and `lorvane-cli query` fill it alike.
struct QueryContext
{
    TempQueryDatabase* scratch = nullptr;
    /// The dictionary `QLMNameList.DB`, open read-only, for data point labels.
    SqliteDatabase* dictionary = nullptr;
    LoadProgress* progress = nullptr;

    /// The used meters as the selection window hands them over (not yet expanded).
    QList<LogFileEntry> files;
    /// The selected data ids (the positive rows of the data point table).
    QList<qint64> dataIds;
    /// Start and end in the grid's direction.
    QDateTime start;
    QDateTime end;
    bool descending = false;

    /// Settings of section `LocalSystem`.
    int tempLogRecSize = 4500;
    QString dataFormat = QStringLiteral("0.00");
    bool useScaledFormats = false;

    /// The "Snapshot Type" / "Data Type" choice (0 for all) and the sort column ("" for
    /// Date/Time).
    int typeFilter = 0;
    QString sortColumn;
    /// Snapshots "Group By Type": the record type ascending comes before every other key.
    bool groupByType = false;
};

} // namespace lorvane
