// SPDX-License-Identifier: GPL-3.0-or-later
#include "TimeSelection.h"

#include "DefaultSelection.h"
#include "MeterTable.h"
#include "TopQueryBuffer.h"
#include "platform/SqlIdentifier.h"
#include "platform/UserText.h"
#include "query/engine/LogFileList.h"
#include "store/MeterDatabase.h"
#include "store/StampedTime.h"
#include "store/WallClock.h"

namespace lorvane {

namespace {

const QTime endOfDay(23, 59, 0);

QString unitText(int option)
{
    switch (option) {
    case TimeSelection::Hours:
        return userText("301030", "hour(s)");
    case TimeSelection::Days:
        return userText("301031", "day(s)");
    case TimeSelection::Weeks:
        return userText("301032", "week(s)");
    case TimeSelection::Months:
        return userText("301033", "month(s)");
    default:
        return userText("301034", "year(s)");
    }
}

/// `DateAdd` of the unit of a "previous" option, `count` units (negative goes back).
QDateTime addUnits(const QDateTime& from, int option, int count)
{
    switch (option) {
    case TimeSelection::Hours:
        return from.addSecs(3600LL * count);
    case TimeSelection::Days:
        return from.addDays(count);
    case TimeSelection::Weeks:
        return from.addDays(7LL * count);
    case TimeSelection::Months:
        return from.addMonths(count);
    default:
        return from.addYears(count);
    }
}

/// Widens `bounds` by the first and last stamp of `table` in the open meter; false when the
/// table has no stamp.
bool widen(SqliteDatabase& db, const QString& table, TimeSelection::Bounds& bounds)
{
    if (!db.tableExists(table))
        return false;
    SqlStatement range = db.prepare(
        QStringLiteral("SELECT Min([Date/Time]) AS dMin, Max([Date/Time]) AS dMax FROM %1")
            .arg(SqlIdentifier::quote(table)));
    if (!range.next() || range.value(0).isNull())
        return false;
    const QDateTime first = StampedTime::parseClock(range.text(0));
    const QDateTime last = StampedTime::parseClock(range.text(1));
    if (!first.isValid() || !last.isValid())
        return false;
    const QDateTime start = WallClock::at(first.date(), QTime(0, 0, 0));
    const QDateTime end = WallClock::at(last.date(), QTime(23, 59, 59));
    if (!bounds.start.isValid() || start < bounds.start)
        bounds.start = start;
    if (!bounds.end.isValid() || end > bounds.end)
        bounds.end = end;
    return true;
}

} // namespace

QString TimeSelection::optionName() const
{
    switch (m_option) {
    case Between:
        return userText("301035", "Between");
    case Hours:
        return userText("301036", "Hour");
    case Days:
        return userText("301037", "Day");
    case Weeks:
        return userText("301038", "Week");
    case Months:
        return userText("301039", "Month");
    case Years:
        return userText("301040", "Year");
    default:
        return {};
    }
}

bool TimeSelection::defined() const
{
    if (m_option == Between)
        return m_start.isValid() && m_end.isValid();
    return m_option >= Hours && m_option <= Years && m_interval >= smallestInterval &&
           m_interval <= largestInterval;
}

QString TimeSelection::acceptPrevious(int option, const QString& intervalText,
                                      TopQueryBuffer& buffer)
{
    bool ok = false;
    const int interval = intervalText.trimmed().toInt(&ok);
    if (option < Hours || option > Years || !ok || interval < smallestInterval ||
        interval > largestInterval)
        return userText("301041", "Invalid time range value") + QLatin1Char('.');
    m_option = option;
    m_interval = interval;
    const QDate today = WallClock::now().date();
    m_start = WallClock::at(today, QTime(0, 0, 0));
    m_end = WallClock::at(today, endOfDay);
    buffer.ClearTopQueryBuffer(true);
    return {};
}

void TimeSelection::acceptBetween(const QDateTime& start, const QDateTime& end,
                                  TopQueryBuffer& buffer)
{
    m_option = Between;
    m_start = WallClock::of(start);
    m_end = WallClock::of(end);
    if (m_end < m_start)
        std::swap(m_start, m_end);
    buffer.ClearTopQueryBuffer(true);
}

TimeSelection::Bounds TimeSelection::bounds(const QDateTime& clock)
{
    if (!defined())
        return {};
    // "The previous N hours" steps back N hours of wall-clock time, as the meter counts
    // them, whatever this PC's zone does in between.
    const QDateTime now = WallClock::of(clock);
    if (m_option == Hours) {
        m_end = WallClock::at(now.date(), QTime(now.time().hour(), now.time().minute(), 0));
        m_start = addUnits(m_end, m_option, -m_interval);
    } else if (m_option != Between) {
        m_end = WallClock::at(now.date(), endOfDay);
        const QDateTime tomorrow = WallClock::at(now.date().addDays(1), QTime(0, 0, 0));
        m_start = WallClock::at(addUnits(tomorrow, m_option, -m_interval).date(), QTime(0, 0, 0));
    }
    return {m_start, m_end};
}

QPair<QString, QString> TimeSelection::labels(const Bounds& bounds, const QString& format) const
{
    if (!defined() || !bounds.start.isValid() || !bounds.end.isValid())
        return {};
    const QString start = bounds.start.toString(format);
    const QString end = bounds.end.toString(format);
    if (m_option == Between)
        return {start, userText("301042", "to") + QLatin1Char(' ') + end};
    return {userText("301043", "Start Time") + QLatin1Char(' ') + start,
            userText("301044", "previous") + QLatin1Char(' ') + QString::number(m_interval) +
                QLatin1Char(' ') + unitText(m_option) + QStringLiteral(", ") + end};
}

void TimeSelection::read(const DefaultSelection& stored, const QDateTime& now)
{
    m_option =
        stored.timeOption >= Between && stored.timeOption <= Years ? stored.timeOption : Undefined;
    m_interval = stored.timeInterval;
    m_start = WallClock::of(stored.startDateTime.isValid() ? stored.startDateTime : now);
    m_end = WallClock::of(stored.endDateTime.isValid() ? stored.endDateTime : now);
}

void TimeSelection::write(DefaultSelection& stored) const
{
    stored.timeOption = m_option == Undefined ? DefaultSelection::noTimeOption : m_option;
    stored.timeInterval = m_interval;
    stored.startDateTime = m_start;
    stored.endDateTime = m_end;
}

TimeSelection::Bounds TimeSelection::dataBounds(const MeterTable& meters)
{
    Bounds bounds;
    const QList<LogFileEntry> files =
        LogFileList::expand(meters.usedFiles(), static_cast<int>(LogKind::Snapshots));
    for (const LogFileEntry& file : files) {
        try {
            MeterDatabase meter(file.dbPath);
            if (!widen(meter.db(), QStringLiteral("AllHistoricalLogs"), bounds))
                widen(meter.db(), QStringLiteral("AllWaveformLogs"), bounds);
        } catch (const std::exception&) {
            // A log file a split-log meter does not keep, or a meter gone since it was
            // opened: the other files still give their limits.
            continue;
        }
    }
    return bounds;
}

} // namespace lorvane
