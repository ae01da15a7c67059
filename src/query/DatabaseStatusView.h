// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GridTable.h"
#include "LogFileEntry.h"

#include <QList>

namespace lorvane {

/// The database status view (log kind 0): per used meter file one grid "Data File
/// Information" of what the file holds: identity, size, downloads, the span and records of
/// each log, and the last stamps. The file is read directly, without a query.
class DatabaseStatusView
{
public:
    /// One grid per used file, in list order. A file that cannot be read gives a grid whose
    /// single row says "Cannot display information."; nothing is thrown.
    static QList<GridTable> run(const QList<LogFileEntry>& files);
    /// The grid of one file, `deviceNumber` from 1.
    static GridTable file(const LogFileEntry& file, int deviceNumber);
};

} // namespace lorvane
