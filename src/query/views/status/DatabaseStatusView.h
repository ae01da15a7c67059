// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/LogFileEntry.h"

#include <QList>

namespace lorvane {

class SqliteDatabase;

/// The database status view (log kind 0): per used meter file one grid "Data File
/// Information" of what the file holds: identity, size, downloads, the span and records of
/// each log (the snapshot records also per hour of the day), and the last stamps of partial
/// downloads. The file is read directly, without a query; a table the file lacks shows "N/A"
/// in its own rows.
class DatabaseStatusView
{
public:
    /// A file whose grid says "Cannot display information.": its path and the engine's words.
    struct Unreadable
    {
        QString path;
        QString detail;
    };

    /// One grid per used file, in list order. A file that cannot be read gives a grid whose
    /// single row says "Cannot display information." and is added to `unreadable` (when
    /// given); nothing is thrown.
    static QList<GridTable> run(const QList<LogFileEntry>& files,
                                QList<Unreadable>* unreadable = nullptr);
    /// The grid of one file, `deviceNumber` from 1; `unreadable` as for run().
    static GridTable file(const LogFileEntry& file, int deviceNumber,
                          QList<Unreadable>* unreadable = nullptr);

private:
    /// The block "Partial Downloads": the last stamp and index of each log a download can
    /// stop in, from `LastTimeStamps`.
    static void partialDownloads(SqliteDatabase& db, GridTable& grid);
};

} // namespace lorvane
