// SPDX-License-Identifier: GPL-3.0-or-later
#include "DailySeries.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "store/DataPointLabel.h"
#include "store/LogKind.h"
#include "store/MeterDatabase.h"
#include "store/SchemaCatalog.h"
#include "store/StampedTime.h"

#include <QHash>

namespace lorvane {

namespace {

constexpr qint64 plottedIds[] = {30001, 30002, 30003, 30079, 30080, 30082, 30076, 30077, 30078};
constexpr int maxLoggedIds = 128;

QString step()
{
    return QStringLiteral("RunPQReport");
}

QList<qint64> loggedIds(SqliteDatabase& db)
{
    QList<qint64> ids;
    if (!db.tableExists(QStringLiteral("DataPoints")))
        return ids;
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT DataID FROM DataPoints ORDER BY rowid LIMIT %1").arg(maxLoggedIds));
    while (select.next())
        ids << (select.isNull(0) ? 0 : select.integer(0));
    return ids;
}

/// Adds the rows of one hour to the series, a new series for each id met first.
void readHour(SqliteDatabase& db, qint64 tablesIndex, int hour, const QString& ids,
              SqliteDatabase* dictionary, QList<DailySeries>& series, QHash<qint64, int>& index)
{
    const QString values =
        SqlIdentifier::quote(SchemaCatalog::hourValueTable(LogKind::Snapshots, tablesIndex, hour));
    const QString times = SqlIdentifier::quote(
        SchemaCatalog::hourTimeIndexTable(LogKind::Snapshots, tablesIndex, hour));
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT %2.[Date/Time], %1.DataID, %1.Value FROM %1 INNER JOIN %2 ON "
                       "%1.[Date/TimeIndex] = %2.[Date/TimeIndex] WHERE %1.DataID IN %3 ORDER BY "
                       "%2.[Date/Time], %1.DataID")
            .arg(values, times, ids));
    while (select.next()) {
        const qint64 id = select.integer(1);
        auto at = index.find(id);
        if (at == index.end()) {
            DailySeries added;
            added.dataId = qint32(id);
            added.name =
                dictionary ? DataPointLabel::text(*dictionary, qint32(id)) : QString::number(id);
            series << added;
            at = index.insert(id, int(series.size() - 1));
        }
        DailySeries& target = series[*at];
        target.times << select.text(0);
        target.values << float(select.real(2));
    }
}

} // namespace

QString DailySeriesReader::idList(const QList<qint64>& loggedIds)
{
    QString list = QStringLiteral("(0");
    for (qsizetype i = 0; i < loggedIds.size() && i < maxLoggedIds; ++i) {
        const qint64 id = loggedIds.at(i);
        if (id == 0)
            break;
        if (std::find(std::begin(plottedIds), std::end(plottedIds), id) != std::end(plottedIds))
            list += QLatin1Char(',') + QString::number(id);
    }
    return list + QLatin1Char(')');
}

QList<DailySeries> DailySeriesReader::read(const QStringList& files, const QDateTime& start,
                                           const QDateTime& end, SqliteDatabase* dictionary,
                                           LoadProgress& progress)
{
    QList<DailySeries> series;
    QHash<qint64, int> index;
    progress.status(userText("610041", "Preparing Snapshot records for EN50160 Plotting") +
                    QLatin1Char('\n') + userText("610042", "For the Period of") + u' ' +
                    start.toString(QStringLiteral("MM/dd/yy")) + QStringLiteral(" to ") +
                    end.toString(QStringLiteral("MM/dd/yy")));
    for (const QString& file : files) {
        MeterDatabase meter(file, step());
        meter.guarded(step(), [&] {
            SqliteDatabase& db = meter.db();
            const QString ids = idList(loggedIds(db));
            const QString master = SchemaCatalog::masterTable(int(LogKind::Snapshots));
            if (ids == QLatin1String("(0)") || !db.tableExists(master))
                return;
            SqlStatement days =
                db.prepare(QStringLiteral("SELECT * FROM %1 WHERE [Date/Time] >= ? And "
                                          "[Date/Time] <= ? ORDER BY [Date/Time]")
                               .arg(SqlIdentifier::quote(master)));
            days.bindAll({StampedTime::storedText(start), StampedTime::storedText(end)});
            while (days.next() && !progress.cancelRequested()) {
                const qint64 tablesIndex =
                    days.value(QStringLiteral("LogTablesIndex")).toLongLong();
                for (int hour = 0; hour < 24; ++hour) {
                    const QVariant logged = days.value(QStringLiteral("Hour_%1").arg(hour));
                    const qint64 records =
                        days.value(QStringLiteral("Recs_%1").arg(hour)).toLongLong();
                    if (logged.isNull() || logged.toLongLong() == 0 || records <= 0)
                        continue;
                    readHour(db, tablesIndex, hour, ids, dictionary, series, index);
                }
            }
        });
    }
    return series;
}

} // namespace lorvane
