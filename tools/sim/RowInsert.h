// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimMeter.h"
#include "platform/SqliteDatabase.h"
#include "store/TableLayout.h"

#include <QList>
#include <QString>
#include <QVariant>
#include <utility>

namespace lorvane::sim {

/// One row for a table of the schema catalogue given as column names and values, for tables
/// whose rows name only some of their columns (master rows, header rows).
class RowInsert
{
public:
    explicit RowInsert(QString table) : m_table(std::move(table)) {}

    RowInsert& set(const QString& column, const QVariant& value);
    /// Inserts the row with bound values into the meter's file, leaving out the columns that
    /// the file's schema version lacks; a table that version lacks gets no row. Throws
    /// StorageError on failure.
    void run(const SimMeter& meter) const;
    /// Runs a prepared `TableLayout::insertSql()` statement of `layout` with this row's values
    /// in the layout's column order, NULL for the columns the row does not name.
    void runPrepared(SqlStatement& insert, const TableLayout& layout) const;

private:
    QString m_table;
    QList<std::pair<QString, QVariant>> m_values;
};

} // namespace lorvane::sim
