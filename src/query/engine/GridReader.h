// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GridColumn.h"
#include "GridTable.h"
#include "QueryCatalog.h"

#include <QList>
#include <QPair>

namespace lorvane {

class SqliteDatabase;

/// Fills a grid from a statement over the query's tables: one cell per column, formatted by
/// the column's form, and per row the hidden keys a double click needs.
class GridReader
{
public:
    /// Runs "SELECT {columns and keys} FROM {from} ORDER BY {orderBy}" on the scratch database.
    /// `keys` are (name, expression) pairs stored in each row's keys; `dataFormat` is the
    /// setting that formats the `Number` columns. Throws StorageError when the statement fails.
    static GridTable read(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          const QString& caption, const QList<GridColumn>& columns,
                          const QList<QPair<QString, QString>>& keys, const QString& from,
                          const QString& orderBy, const QString& dataFormat = QString());
};

} // namespace lorvane
