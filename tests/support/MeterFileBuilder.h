// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SqliteDatabase.h"

#include <QString>
#include <QVariantList>
#include <memory>

namespace lorvane::test {

/// Writes a meter database the way another program would, knowing only the storage
/// contract: every table of the schema, then rows through plain SQL.
class MeterFileBuilder
{
public:
    /// Creates `path` with every file-wide table of `version` and its `ID_Table` row.
    MeterFileBuilder(const QString& path, double version = 8.6);

    SqliteDatabase& db() { return *m_db; }

    MeterFileBuilder& device(int typeId, const QString& typeName, const QString& hardwareName,
                             const QVariant& hardwareId = QStringLiteral("HW-1"));
    MeterFileBuilder& dataPoints(const QList<qint64>& ids);
    MeterFileBuilder& download(const QString& entry, const QString& logOption,
                               const QVariant& firmwareInfo3 = {});
    /// A day row of a master table with its records and span (`HTable` -1).
    MeterFileBuilder& dayRow(const QString& masterTable, const QString& day, qint64 index,
                             qint64 records, const QString& start, const QString& end);
    MeterFileBuilder& sql(const QString& statement, const QVariantList& values = {});

    /// Closes the file so that other readers see a complete database.
    void close() { m_db.reset(); }

private:
    std::unique_ptr<SqliteDatabase> m_db;
};

} // namespace lorvane::test
