// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendSimMeter.h"

#include "MeterSimulator.h"
#include "platform/SqliteDatabase.h"
#include "store/StampedTime.h"
#include "store/WallClock.h"

namespace lorvane::test {

TrendSimMeter::TrendSimMeter(int days, int intervalMinutes, int points, quint64 seed)
{
    m_path = m_dir.filePath(QStringLiteral("Trend%1.DB").arg(seed));
    sim::SimOptions options;
    options.out = m_path;
    options.days = days;
    options.intervalMinutes = intervalMinutes;
    options.points = points;
    options.seed = seed;
    sim::MeterSimulator(options).run();
}

LogFileEntry TrendSimMeter::entry() const
{
    LogFileEntry entry;
    entry.dbPath = m_path;
    entry.deviceTypeId = 3;
    entry.used = true;
    return entry;
}

QList<qint32> TrendSimMeter::dataIds() const
{
    SqliteDatabase db(m_path, SqliteDatabase::Mode::ReadOnly);
    SqlStatement ids = db.prepare(QStringLiteral("SELECT DISTINCT [DataID] FROM HistLog_1_0 "
                                                 "ORDER BY [DataID]"));
    QList<qint32> out;
    while (ids.next())
        out << qint32(ids.integer(0));
    return out;
}

qint64 TrendSimMeter::rowsOf(qint32 dataId, const QDateTime& from, const QDateTime& to) const
{
    qint64 rows = 0;
    for (qint64 count : hoursOf(dataId, from, to))
        rows += count;
    return rows;
}

QMap<QDateTime, qint64> TrendSimMeter::hoursOf(qint32 dataId, const QDateTime& from,
                                               const QDateTime& to) const
{
    SqliteDatabase db(m_path, SqliteDatabase::Mode::ReadOnly);
    QMap<QDateTime, qint64> hours;
    SqlStatement days = db.prepare(QStringLiteral("SELECT [LogTablesIndex], [Date/Time] FROM "
                                                  "AllHistoricalLogs"));
    QList<std::pair<qint64, QDate>> indexes;
    while (days.next())
        indexes.append({days.integer(0), StampedTime::parseClock(days.text(1)).date()});
    for (const auto& [t, day] : indexes) {
        for (int h = 0; h < 24; ++h) {
            const QString suffix = QStringLiteral("%1_%2").arg(t).arg(h);
            if (!db.tableExists(QStringLiteral("HistLog_") + suffix))
                continue;
            const qint64 rows =
                db.scalar(QStringLiteral("SELECT count(*) FROM HistLog_%1 AS H JOIN "
                                         "HistLogTimeIndex_%1 AS I USING ([Date/TimeIndex]) "
                                         "WHERE H.[DataID] = ? AND I.[Date/Time] BETWEEN ? "
                                         "AND ?")
                              .arg(suffix),
                          {dataId, StampedTime::storedText(from), StampedTime::storedText(to)})
                    .toLongLong();
            if (rows > 0)
                hours.insert(WallClock::at(day, QTime(h, 0)), rows);
        }
    }
    return hours;
}

QDateTime TrendSimMeter::at(int day, int hour, int minute)
{
    return WallClock::at(QDate(2024, 3, 4).addDays(day), QTime(hour, minute));
}

} // namespace lorvane::test
