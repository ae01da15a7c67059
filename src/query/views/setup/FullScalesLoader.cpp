// SPDX-License-Identifier: GPL-3.0-or-later
#include "FullScalesLoader.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "query/engine/AttachedMeterFiles.h"
#include "query/engine/DayWalk.h"
#include "query/engine/LogFileList.h"

#include <QPair>

namespace lorvane {

void FullScalesLoader::load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                            const QueryNumbers& numbers, const QStringList& logTables)
{
    copyByIndex(db, files, logTables, QStringLiteral("FullScales"),
                numbers.sliceTable(QStringLiteral("FullScales_")));
}

void FullScalesLoader::copyByIndex(SqliteDatabase& db, const QList<LogFileEntry>& files,
                                   const QStringList& logTables, const QString& meterTable,
                                   const QString& target)
{
    QStringList pairs;
    for (const QString& table : logTables) {
        pairs << QStringLiteral("SELECT [DeviceIndex], [Index] FROM %1")
                     .arg(SqlIdentifier::quote(table));
    }
    QList<QPair<qint64, qint64>> wanted;
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT DISTINCT * FROM (%1) WHERE [DeviceIndex] > 0 AND [Index] IS NOT "
                       "NULL ORDER BY 1, 2")
            .arg(pairs.join(QStringLiteral(" UNION "))));
    while (select.next())
        wanted.append({select.integer(0), select.integer(1)});
    if (wanted.isEmpty())
        return;

    QStringList columns = db.columns(target);
    columns.removeAll(QStringLiteral("DeviceIndex"));
    for (QString& column : columns)
        column = SqlIdentifier::quote(column);
    const QString columnList = columns.join(QStringLiteral(", "));

    AttachedMeterFiles attached(db);
    for (const auto& [device, index] : wanted) {
        const LogFileEntry* file = LogFileList::fileOfDevice(files, device);
        if (!file)
            continue;
        QString schema;
        try {
            schema = attached.schemaFor(file->dbPath);
            if (!db.hasRows(QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE type = 'table' "
                                           "AND name = ? COLLATE NOCASE")
                                .arg(SqlIdentifier::quote(schema)),
                            {meterTable}))
                continue;
        } catch (const StorageError&) {
            // A file that will not open gives no settings; its rows still show.
            continue;
        }
        db.execute(QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM %3.%4 WHERE [Index] = ?")
                       .arg(SqlIdentifier::quote(target), columnList, SqlIdentifier::quote(schema),
                            SqlIdentifier::quote(meterTable)),
                   {index});
        DayWalk::stampDevice(db, target, device);
    }
}

} // namespace lorvane
