// SPDX-License-Identifier: GPL-3.0-or-later
#include "DayRowsCopy.h"

#include "QueryCatalog.h"
#include "QueryContext.h"
#include "ViewResult.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "store/SchemaCatalog.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

DayWalk::Result DayRowsCopy::run(QueryContext& context, QList<LogFileEntry>& files, LogKind kind,
                                 const QString& target, const QString& word,
                                 const InsertStatement& insert)
{
    SqliteDatabase& db = context.scratch->database();
    SilentProgress silent;
    DayWalk walk(*context.scratch, context.progress ? *context.progress : silent);
    // PQ records and waveform captures are counted as captures.
    if (kind == LogKind::PowerQuality || kind == LogKind::Waveform)
        walk.countsIn(userText("300023", "captures"));
    const QString master = SchemaCatalog::masterTable(static_cast<int>(kind));
    return walk.run(
        files, master, word, context.start, context.end, context.descending,
        [&](const DayVisit& visit) {
            const QString schema = SqlIdentifier::quote(visit.schema);
            const QString day =
                schema + QLatin1Char('.') +
                SqlIdentifier::quote(SchemaCatalog::dayTable(kind, visit.row.logTablesIndex));
            db.execute(insert(schema, day),
                       {QueryCatalog::stamp(visit.from), QueryCatalog::stamp(visit.to)});
            const qint64 added = db.scalar(QStringLiteral("SELECT changes()")).toLongLong();
            if (added > 0)
                DayWalk::stampDevice(db, target, visit.file->deviceIndex + 1);
            return VisitResult{added, false, {}};
        });
}

DayWalk::Result DayRowsCopy::copyColumns(QueryContext& context, QList<LogFileEntry>& files,
                                         LogKind kind, const QString& target,
                                         const QString& timeColumn, const QString& word)
{
    QStringList columns = context.scratch->database().columns(target);
    columns.removeAll(QStringLiteral("DeviceIndex"));
    for (QString& column : columns)
        column = SqlIdentifier::quote(column);
    const QString list = columns.join(QStringLiteral(", "));
    const QString head = QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM ")
                             .arg(SqlIdentifier::quote(target), list);
    const QString where = QStringLiteral(" WHERE %1 BETWEEN ? AND ? ORDER BY rowid")
                              .arg(SqlIdentifier::quote(timeColumn));
    return run(context, files, kind, target, word,
               [&](const QString&, const QString& day) { return head + day + where; });
}

void DayRowsCopy::describe(const DayWalk::Result& walk, const QueryContext& context,
                           ViewResult& result)
{
    result.rowsRead = walk.rows;
    result.cancelled = walk.cancelled;
    result.noData = walk.noData || walk.rows == 0;
    result.effectiveStart = walk.effectiveStart;
    result.effectiveEnd = walk.effectiveEnd;
    result.page = 1;
    result.pages = 1;
    result.allRead = !walk.cancelled;
    const bool found = !walk.noData && walk.rows > 0;
    QDateTime from = found ? walk.effectiveStart : context.start;
    QDateTime to = found ? walk.effectiveEnd : context.end;
    if (found && context.descending)
        std::swap(from, to);
    const QString range = DayWalk::timeText(from) + QLatin1Char(' ') + userText("303000", "to") +
                          QLatin1Char(' ') + DayWalk::timeText(to);
    result.rangeText =
        found ? range : userText("303001", "No data found") + QStringLiteral(": ") + range;
}

} // namespace lorvane
