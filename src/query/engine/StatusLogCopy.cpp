// SPDX-License-Identifier: GPL-3.0-or-later
#include "StatusLogCopy.h"

#include "AttachedMeterFiles.h"
#include "LogFileList.h"
#include "QueryCatalog.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "store/SchemaCatalog.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

namespace {

QString qualified(const QString& schema, const QString& table)
{
    return SqlIdentifier::quote(schema) + QLatin1Char('.') + SqlIdentifier::quote(table);
}

qint64 changes(SqliteDatabase& db)
{
    return db.scalar(QStringLiteral("SELECT changes()")).toLongLong();
}

} // namespace

QString StatusLogCopy::sharedColumns(SqliteDatabase& db, const QString& schema,
                                     const QString& table, const QString& target)
{
    SqlStatement info =
        db.prepare(QStringLiteral("PRAGMA %1.table_info(%2)")
                       .arg(SqlIdentifier::quote(schema), SqlIdentifier::quote(table)));
    QStringList source;
    while (info.next())
        source << info.value(QStringLiteral("name")).toString();
    QStringList shared;
    for (const QString& column : db.columns(target)) {
        if (column.compare(QLatin1String("DeviceIndex"), Qt::CaseInsensitive) == 0)
            continue;
        // Older files lack columns later versions added: those keep the table's default.
        if (source.contains(column, Qt::CaseInsensitive))
            shared << SqlIdentifier::quote(column);
    }
    return shared.join(QStringLiteral(", "));
}

QString StatusLogCopy::channelFilter(const QList<MeterItems::Channel>& chosen,
                                     const QString& column, QVariantList& values)
{
    if (chosen.isEmpty())
        return {};
    QStringList any;
    for (const MeterItems::Channel& channel : chosen) {
        any << QStringLiteral("([ModuleIndex] = ? AND %1 = ?)").arg(SqlIdentifier::quote(column));
        values << channel.module << channel.index;
    }
    return QStringLiteral(" AND (") + any.join(QStringLiteral(" OR ")) + QLatin1Char(')');
}

DayWalk::Result StatusLogCopy::load(QueryContext& context, QList<LogFileEntry>& files,
                                    const QueryNumbers& numbers, const Log& log)
{
    SqliteDatabase& db = context.scratch->database();
    const QString target = numbers.sliceTable(log.target);
    // A record enters when any of its stamps lies in the query's range, even one filed under
    // a day whose own part of the range it leaves (a state that crosses midnight).
    const QString from = QueryCatalog::stamp(std::min(context.start, context.end));
    const QString to = QueryCatalog::stamp(std::max(context.start, context.end));
    QStringList anyStamp;
    QVariantList bounds;
    for (const QString& column : log.timeColumns) {
        anyStamp << SqlIdentifier::quote(column) + QStringLiteral(" BETWEEN ? AND ?");
        bounds << from << to;
    }
    const QString where =
        QLatin1Char('(') + anyStamp.join(QStringLiteral(" OR ")) + QLatin1Char(')');

    SilentProgress silent;
    DayWalk walk(*context.scratch, context.progress ? *context.progress : silent);
    return walk.run(files, SchemaCatalog::masterTable(static_cast<int>(log.kind)), log.word,
                    context.start, context.end, context.descending, [&](const DayVisit& visit) {
                        const QString day =
                            SchemaCatalog::dayTable(log.kind, visit.row.logTablesIndex);
                        const QString columns = sharedColumns(db, visit.schema, day, target);
                        // A day the index names without its table is damaged, as for every
                        // other log: the walk reports it with the file and the table.
                        if (columns.isEmpty())
                            throw StorageError(StorageError::Kind::Engine, visit.file->dbPath,
                                               QStringLiteral("no such table: ") + day);
                        QVariantList values = bounds;
                        const QString chosen = log.channels
                                                   ? channelFilter(visit.file->items.*log.channels,
                                                                   log.channelColumn, values)
                                                   : QString();
                        db.execute(QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM %3 WHERE %4")
                                       .arg(SqlIdentifier::quote(target), columns,
                                            qualified(visit.schema, day), where + chosen),
                                   values);
                        const qint64 rows = changes(db);
                        if (rows > 0)
                            DayWalk::stampDevice(db, target, visit.file->deviceIndex + 1);
                        return VisitResult{rows, false, {}};
                    });
}

qint64 StatusLogCopy::copySettings(QueryContext& context, const QList<LogFileEntry>& files,
                                   const QueryNumbers& numbers, const QString& logBase,
                                   const QString& settingsTable, const QString& itemsBase)
{
    SqliteDatabase& db = context.scratch->database();
    const QString log = numbers.sliceTable(logBase);
    const QString items = numbers.sliceTable(itemsBase);
    QList<QPair<qint64, qint64>> found;
    {
        SqlStatement distinct =
            db.prepare(QStringLiteral("SELECT DISTINCT [DeviceIndex], [Index] FROM %1 "
                                      "ORDER BY [DeviceIndex], [Index]")
                           .arg(SqlIdentifier::quote(log)));
        while (distinct.next())
            found.append({distinct.integer(0), distinct.integer(1)});
    }
    AttachedMeterFiles attached(db);
    qint64 total = 0;
    for (const auto& [device, index] : found) {
        const LogFileEntry* file = LogFileList::fileOfDevice(files, device);
        if (!file)
            continue;
        QString schema;
        try {
            schema = attached.schemaFor(file->dbPath);
        } catch (const StorageError&) {
            // The file went away after its rows were read: its records stay without settings.
            continue;
        }
        const QString columns = sharedColumns(db, schema, settingsTable, items);
        if (columns.isEmpty())
            continue;
        db.execute(QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM %3 WHERE [Index] = ?")
                       .arg(SqlIdentifier::quote(items), columns, qualified(schema, settingsTable)),
                   {index});
        const qint64 rows = changes(db);
        total += rows;
        if (rows > 0)
            DayWalk::stampDevice(db, items, device);
    }
    return total;
}

} // namespace lorvane
