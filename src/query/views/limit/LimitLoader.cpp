// SPDX-License-Identifier: GPL-3.0-or-later
#include "LimitLoader.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/DayRowsCopy.h"
#include "query/engine/QueryContext.h"
#include "store/DataPointLabel.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

DayWalk::Result LimitLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                                  const QueryNumbers& numbers)
{
    const QString target = numbers.sliceTable(QStringLiteral("LimitsLog_"));
    const auto insert = [&target](const QString& schema, const QString& day) {
        return QStringLiteral(
                   "INSERT INTO %1 ([StartDate/Time], [Startms], [SDTmode], [EndDate/Time], "
                   "[Endms], [EDTmode], [LState], [Duration], [LValue], [DescriptionCode], "
                   "[DataID], [LimitID], [LSet], [LSAB], [LSet%], [DataIndex]) "
                   "SELECT LL.[StartDate/Time], LL.[Startms], LL.[SDTmode], LL.[EndDate/Time], "
                   "LL.[Endms], LL.[EDTmode], LL.[LState], LL.[Duration], LL.[LValue], "
                   "LL.[DescriptionCode], LLA.[DataID], LLA.[LimitID], LLA.[LSet], LLA.[LSAB], "
                   "LLA.[LSet%], LLA.[DataIndex] FROM %2 AS LL JOIN %3.[LimitsLogDataItem] AS LLA "
                   "ON LL.[LinkIndex] = LLA.[LinkIndex] WHERE LL.[StartDate/Time] BETWEEN ? AND ? "
                   "ORDER BY LL.rowid")
            .arg(SqlIdentifier::quote(target), day, schema);
    };
    return DayRowsCopy::run(context, files, LogKind::Limits, target, userText("303002", "limits"),
                            insert);
}

void LimitLoader::fillTagNames(QueryContext& context, const QueryNumbers& numbers)
{
    SqliteDatabase& db = context.scratch->database();
    const QString tags = SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("TagNames_")));
    db.execute(
        QStringLiteral("INSERT INTO %1 ([DataID]) SELECT DISTINCT [DataID] FROM %2")
            .arg(tags, SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("LimitsLog_")))));
    db.execute(QStringLiteral("UPDATE %1 SET [LogSource] = ? WHERE [LogSource] = -1").arg(tags),
               {limitLogSource});
    QList<qint64> ids;
    SqlStatement select =
        db.prepare(QStringLiteral("SELECT DISTINCT [DataID] FROM %1 WHERE [LogSource] = ? AND "
                                  "[TextName] IS NULL")
                       .arg(tags));
    select.bind(1, qint64{limitLogSource});
    while (select.next())
        ids << select.integer(0);
    for (qint64 id : ids) {
        const auto point = static_cast<qint32>(id);
        const QString name = context.dictionary ? DataPointLabel::text(*context.dictionary, point)
                                                : DataPointLabel::notAvailable(point);
        db.execute(
            QStringLiteral("UPDATE %1 SET [TextName] = ? WHERE [DataID] = ? AND [LogSource] = ?")
                .arg(tags),
            {name, id, limitLogSource});
    }
}

} // namespace lorvane
