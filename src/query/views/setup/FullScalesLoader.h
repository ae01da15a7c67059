// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "query/engine/QueryCatalog.h"

#include <QList>
#include <QStringList>

namespace lorvane {

class SqliteDatabase;

/// Copies the capture settings that the rows of a query use: for each meter file and setting
/// `Index` found in the query's log tables, that setting's row of a file-wide table.
class FullScalesLoader
{
public:
    /// Copies `FullScales` rows into `FullScales_{Q}_{S}` for the (`DeviceIndex`, `Index`)
    /// pairs of `logTables` (scratch tables of the query). Throws StorageError.
    static void load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                     const QueryNumbers& numbers, const QStringList& logTables);

    /// The shared step: for each distinct (`DeviceIndex`, `Index`) of `logTables`, the rows of
    /// `meterTable` with that `Index` from the file whose device index it is, inserted into
    /// `target` and stamped with the device index. A file that cannot be read, or lacks the
    /// table, adds nothing. Throws StorageError when a statement on the scratch database fails.
    static void copyByIndex(SqliteDatabase& db, const QList<LogFileEntry>& files,
                            const QStringList& logTables, const QString& meterTable,
                            const QString& target);
};

} // namespace lorvane
