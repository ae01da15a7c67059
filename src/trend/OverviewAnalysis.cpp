// SPDX-License-Identifier: GPL-3.0-or-later
#include "OverviewAnalysis.h"

#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "store/LogKind.h"
#include "store/MeterMessages.h"
#include "store/SchemaCatalog.h"
#include "store/StampedTime.h"
#include "store/WallClock.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace lorvane {

namespace {

const QDate epoch(1970, 1, 1);

QString completed()
{
    return QLatin1Char(' ') + userText("702002", "Completed");
}

QList<qint32> dataPointsOf(SqliteDatabase& db)
{
    QList<qint32> ids;
    SqlStatement points = db.prepare(QStringLiteral("SELECT [DataID] FROM DataPoints"));
    while (points.next())
        ids << qint32(points.integer(0));
    return ids;
}

/// A file without any write permission counts as read-only even for a user whom the system
/// would let write it anyway: the mark is the owner's word that the file stays as it is.
bool readOnly(const QString& path)
{
    const QFileInfo file(path);
    const auto writeBits = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return file.isFile() && (!file.isWritable() || !(file.permissions() & writeBits));
}

struct HourOfDay
{
    QDate day;
    qint64 logTablesIndex;
    int hour;
};

} // namespace

QString OverviewAnalysis::tableOf(qint32 dataId)
{
    return QStringLiteral("HistOverview_%1").arg(dataId);
}

OverviewAnalysis::Result OverviewAnalysis::analyze(const QString& path, const Lines& lines,
                                                   LoadProgress& progress)
{
    Result result;
    if (readOnly(path))
        throw Fault(Fault::Kind::ReadOnly, MeterMessages::readOnlyAttribute(path),
                    QStringLiteral("Analyze"), path);
    lines(userText("702001", "Opening Database"));
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadWrite);
    lines(completed());

    db.beginTransaction();
    try {
        const QList<qint32> ids = dataPointsOf(db);
        QSet<qint32> known;
        for (qint32 id : ids) {
            lines(userText("702003", "Creating Historical Overview Table for") +
                  QString::number(id));
            const QString table = SqlIdentifier::quote(tableOf(id));
            db.execute(QStringLiteral("DROP TABLE IF EXISTS ") + table);
            db.execute(QStringLiteral("CREATE TABLE %1 ([Index] INTEGER, [DateIndex] INTEGER, "
                                      "[HourNum] INTEGER, [DayNum] INTEGER, [Count] INTEGER)")
                           .arg(table));
            known.insert(id);
            ++result.tables;
            lines(completed());
        }

        lines(userText("702004", "Opening AllHistoricalLogs Table"));
        QList<HourOfDay> hours;
        {
            QString sql = QStringLiteral("SELECT [Date/Time], [LogTablesIndex]");
            for (int h = 0; h < 24; ++h)
                sql += QStringLiteral(", [Hour_%1]").arg(h);
            SqlStatement days =
                db.prepare(sql + QStringLiteral(" FROM AllHistoricalLogs ORDER BY [Date/Time]"));
            while (days.next()) {
                const QDate day = StampedTime::parseClock(days.text(0)).date();
                for (int h = 0; h < 24; ++h)
                    if (days.integer(2 + h) != 0)
                        hours.append(HourOfDay{day, days.integer(1), h});
            }
        }
        lines(userText("702005", "Opening AllHistoricalLogs Table Completed"));

        QHash<qint32, qint64> nextIndex;
        for (qsizetype i = 0; i < hours.size(); ++i) {
            if (progress.cancelRequested()) {
                db.rollback();
                return result;
            }
            progress.advance(i, hours.size());
            const HourOfDay& h = hours.at(i);
            const QString text = h.day.toString(QStringLiteral("yyyy/MM/dd")) + QLatin1Char(' ') +
                                 QString::number(h.hour) + QStringLiteral(":00:00");
            lines(userText("702006", "Processing [") + text + QLatin1Char(']'));
            const QString valueTable =
                SchemaCatalog::hourValueTable(LogKind::Snapshots, h.logTablesIndex, h.hour);
            QList<std::pair<qint32, qint64>> counts;
            try {
                SqlStatement rows =
                    db.prepare(QStringLiteral("SELECT [DataID], count(*) FROM %1 GROUP BY [DataID]")
                                   .arg(SqlIdentifier::quote(valueTable)));
                while (rows.next())
                    counts.append({qint32(rows.integer(0)), rows.integer(1)});
            } catch (const StorageError&) {
                lines(userText("702007", "Error"));
                ++result.errors;
                continue;
            }
            for (const auto& [id, count] : counts) {
                if (!known.contains(id)) {
                    lines(userText("702007", "Error"));
                    ++result.errors;
                    continue;
                }
                const qint64 index = ++nextIndex[id];
                db.execute(QStringLiteral("INSERT INTO %1 VALUES(?, ?, ?, ?, ?)")
                               .arg(SqlIdentifier::quote(tableOf(id))),
                           {index, h.logTablesIndex, h.hour, epoch.daysTo(h.day), count});
                ++result.rows;
            }
            lines(userText("702006", "Processing [") + text + QLatin1Char(']') + completed());
        }
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
    progress.advance(1, 1);
    lines(userText("702008", "Database analysis completed."));
    lines(QStringLiteral("-----------------------"));
    lines(userText("702009", "Analysis done."));
    result.completed = true;
    return result;
}

QList<OverviewSet> OverviewAnalysis::load(const QString& path, const Lines& lines)
{
    lines(userText("702010", "Loading Analysis from") + QLatin1Char(' ') + path);
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    lines(userText("702011", "Loading Datapoints."));
    const QList<qint32> ids = dataPointsOf(db);
    lines(QString::number(ids.size()) + QLatin1Char(' ') + userText("702012", "sets found."));
    QList<OverviewSet> sets;
    for (qint32 id : ids) {
        lines(userText("702013", "Loading set") + QLatin1Char(' ') + QString::number(id));
        OverviewSet set;
        set.dataId = id;
        if (db.tableExists(tableOf(id))) {
            SqlStatement rows =
                db.prepare(QStringLiteral("SELECT [DayNum], [HourNum], [Count] FROM %1 ORDER BY "
                                          "[DayNum], [HourNum]")
                               .arg(SqlIdentifier::quote(tableOf(id))));
            while (rows.next()) {
                if (rows.integer(1) < 0 || rows.integer(1) > 23)
                    continue; // not an hour this program wrote
                const QDateTime hour =
                    WallClock::at(epoch.addDays(rows.integer(0)), QTime(int(rows.integer(1)), 0));
                if (!set.first.isValid())
                    set.first = hour;
                set.last = hour;
                set.totalPoints += rows.integer(2);
            }
        }
        sets.append(set);
        lines(QLatin1Char(' ') + userText("702014", "Completed."));
    }
    return sets;
}

} // namespace lorvane
