// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScaledFormatsLoader.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "query/engine/AttachedMeterFiles.h"
#include "query/engine/DayWalk.h"

namespace lorvane {

qint64 ScaledFormatsLoader::load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                                 const QueryNumbers& numbers)
{
    const QString target = numbers.sliceTable(QStringLiteral("ScaledFormats"));
    AttachedMeterFiles attached(db);
    qint64 rows = 0;
    for (const LogFileEntry& file : files) {
        if (!file.used || !file.readable)
            continue;
        QString schema;
        try {
            schema = SqlIdentifier::quote(attached.schemaFor(file.dbPath));
            if (!db.hasRows(QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE type = 'table' "
                                           "AND name = 'ScaledFormats' COLLATE NOCASE")
                                .arg(schema)))
                continue;
        } catch (const StorageError&) {
            continue;
        }
        db.execute(QStringLiteral("INSERT INTO %1 ([ProfileIndex], [FormatID], [Digits], [Units], "
                                  "[Decimals]) SELECT [ProfileIndex], [FormatID], [Digits], "
                                  "[Units], [Decimals] FROM %2.[ScaledFormats]")
                       .arg(SqlIdentifier::quote(target), schema));
        rows += db.scalar(QStringLiteral("SELECT changes()")).toLongLong();
        DayWalk::stampDevice(db, target, file.deviceIndex + 1);
    }
    return rows;
}

} // namespace lorvane
