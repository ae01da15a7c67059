// SPDX-License-Identifier: GPL-3.0-or-later
#include "DayWalk.h"

#include "AttachedMeterFiles.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <QLocale>

namespace lorvane {

namespace {

const QString isoDate = QStringLiteral("yyyy-MM-dd");

QString qualified(const QString& schema, const QString& table)
{
    return SqlIdentifier::quote(schema) + QLatin1Char('.') + SqlIdentifier::quote(table);
}

/// The first day row of a file for one day; a second row of the same day is never read.
bool readDayRow(SqliteDatabase& db, const QString& schema, const QString& master, const QDate& day,
                DayIndexRow& row)
{
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT * FROM %1 WHERE date([Date/Time]) = ? ORDER BY rowid LIMIT 1")
            .arg(qualified(schema, master)));
    select.bind(1, day.toString(isoDate));
    if (!select.next())
        return false;
    row = DayIndexRow{};
    row.day = day;
    for (int c = 0; c < select.columnCount(); ++c)
        row.values.insert(select.columnName(c), select.value(c));
    const auto value = [&](const QString& name) { return select.value(name); };
    row.logTablesIndex = value(QStringLiteral("LogTablesIndex")).toLongLong();
    const QVariant recs = value(QStringLiteral("Recs"));
    if (recs.isValid()) {
        row.records = recs.toLongLong();
        // A clear table flag means the day has no table, whatever the count says.
        const QVariant hasTable = value(QStringLiteral("HTable"));
        if (hasTable.isValid() && !hasTable.isNull() && hasTable.toLongLong() == 0)
            row.records = 0;
    } else {
        for (int h = 0; h < 24; ++h)
            row.records += value(QStringLiteral("Recs_%1").arg(h)).toLongLong();
    }
    return true;
}

/// A day the loader could not read, told in the user's terms: the meter file and the table
/// as the file names it, never the scratch database or the name it is attached under.
Fault damagedDay(const StorageError& error, const QString& schema, const LogFileEntry& file,
                 const QDate& day)
{
    QString detail = error.detail();
    detail.replace(SqlIdentifier::quote(schema) + QLatin1Char('.'), QString());
    detail.replace(schema + QLatin1Char('.'), QString());
    return Fault(Fault::Kind::Damaged,
                 userText("300021", "The log of this day cannot be read") + QLatin1Char(' ') +
                     DayWalk::dateText(day) + QStringLiteral(": ") + detail + QLatin1Char('\n') +
                     userText("300022", "Database") + QStringLiteral(": ") + file.dbPath,
                 QStringLiteral("LoadQuery"), file.dbPath);
}

} // namespace

DayWalk::DayWalk(TempQueryDatabase& scratch, LoadProgress& progress)
    : m_scratch(scratch), m_progress(progress), m_countWord(userText("300019", "data points"))
{
}

QString DayWalk::dateText(const QDate& date)
{
    return QLocale().toString(date, QLocale::ShortFormat);
}

QString DayWalk::timeText(const QDateTime& time)
{
    return QLocale().toString(time, QLocale::ShortFormat);
}

void DayWalk::stampDevice(SqliteDatabase& db, const QString& table, qint64 deviceIndex)
{
    db.execute(QStringLiteral("UPDATE %1 SET [DeviceIndex] = ? WHERE [DeviceIndex] < 0")
                   .arg(SqlIdentifier::quote(table)),
               {deviceIndex});
}

DayWalk::Result DayWalk::run(QList<LogFileEntry>& files, const QString& masterTable,
                             const QString& word, const QDateTime& start, const QDateTime& end,
                             bool descending, const Visitor& visit)
{
    SqliteDatabase& db = m_scratch.database();
    AttachedMeterFiles attached(db);
    Result result;
    m_progress.status(userText("300010", "Loading ") + word + userText("300011", " queries"));

    // Meter days and hours are wall-clock readings: no bound may pass through the PC's zone.
    const QDateTime first = WallClock::of(std::min(start, end));
    const QDateTime last = WallClock::of(std::max(start, end));

    // Bounds: the earliest and latest day of the range over all files.
    QDate low;
    QDate high;
    QList<int> withDays;
    for (int i = 0; i < files.size(); ++i) {
        LogFileEntry& file = files[i];
        if (!file.used)
            continue;
        m_progress.status(userText("300012", "Open device file") + QStringLiteral(": ") +
                          file.hardwareName);
        try {
            const QString schema = attached.schemaFor(file.dbPath);
            SqlStatement bounds = db.prepare(
                QStringLiteral("SELECT min(date([Date/Time])), max(date([Date/Time])) FROM %1 "
                               "WHERE date([Date/Time]) BETWEEN ? AND ?")
                    .arg(qualified(schema, masterTable)));
            bounds.bindAll({first.date().toString(isoDate), last.date().toString(isoDate)});
            if (!bounds.next() || bounds.isNull(0))
                continue;
            const QDate fileLow = QDate::fromString(bounds.text(0), isoDate);
            const QDate fileHigh = QDate::fromString(bounds.text(1), isoDate);
            low = low.isValid() ? std::min(low, fileLow) : fileLow;
            high = high.isValid() ? std::max(high, fileHigh) : fileHigh;
            withDays.append(i);
        } catch (const StorageError&) {
            // A file that will not open, or lacks this log, is left out of the query.
            file.readable = false;
        }
    }
    if (withDays.isEmpty() || !low.isValid()) {
        m_progress.status(userText("300013", "Search did not find any data from master databases") +
                          QLatin1Char('.'));
        result.noData = true;
        return result;
    }

    result.effectiveStart = low == first.date() ? first : WallClock::at(low, QTime(0, 0, 0));
    result.effectiveEnd = high == last.date() ? last : WallClock::at(high, QTime(23, 59, 59));
    QDateTime shownStart = result.effectiveStart;
    QDateTime shownEnd = result.effectiveEnd;
    if (descending)
        std::swap(shownStart, shownEnd);
    m_progress.status(userText("300014", "Range from") + QLatin1Char(' ') + timeText(shownStart) +
                      QLatin1Char(' ') + userText("300015", "to") + QLatin1Char(' ') +
                      timeText(shownEnd));

    const qint64 days = low.daysTo(high);
    // The days of the range are the known total: each walked day moves the bar.
    m_progress.advance(0, days + 1);
    for (qint64 step = 0; step <= days; ++step) {
        const QDate day = descending ? high.addDays(-step) : low.addDays(step);
        const QDateTime dayStart = WallClock::at(day, QTime(0, 0, 0));
        const QDateTime dayEnd = WallClock::at(day, QTime(23, 59, 59));
        for (int i : withDays) {
            LogFileEntry& file = files[i];
            if (!file.readable)
                continue;
            DayVisit visit_;
            try {
                visit_.schema = attached.schemaFor(file.dbPath);
                if (!readDayRow(db, visit_.schema, masterTable, day, visit_.row) ||
                    visit_.row.records <= 0)
                    continue;
            } catch (const StorageError&) {
                file.readable = false;
                continue;
            }
            visit_.file = &file;
            visit_.from = std::max(dayStart, result.effectiveStart);
            visit_.to = std::min(dayEnd, result.effectiveEnd);
            visit_.descending = descending;
            m_progress.status(userText("300016", "Searching data for device") + QLatin1Char(' ') +
                              file.hardwareName + QLatin1Char(' ') + userText("300017", "at") +
                              QLatin1Char(' ') + dateText(day));
            VisitResult done;
            try {
                done = visit(visit_);
            } catch (const StorageError& error) {
                throw damagedDay(error, visit_.schema, file, day);
            }
            result.rows += done.rows;
            if (done.stop) {
                result.stopped = true;
                result.reached = done.reached;
                return result;
            }
        }
        m_progress.status(userText("300020", "At") + QLatin1Char(' ') + dateText(day) +
                          QStringLiteral(", ") + userText("300018", "you have") + QLatin1Char(' ') +
                          QString::number(result.rows) + QLatin1Char(' ') + m_countWord +
                          QLatin1Char('.'));
        m_progress.advance(step + 1, days + 1);
        if (m_progress.cancelRequested()) {
            result.cancelled = true;
            result.reached = descending ? dayStart : dayEnd;
            return result;
        }
    }
    return result;
}

} // namespace lorvane
