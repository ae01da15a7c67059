// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LogFileEntry.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariantMap>
#include <functional>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;
class TempQueryDatabase;

/// The day index row of one file for one day (a row of an `All...Logs` table).
struct DayIndexRow
{
    QDate day;
    qint64 logTablesIndex = 0;
    /// Records of the day: `Recs`, or the sum of `Recs_0` to `Recs_23` of an hourly master;
    /// NULL counts as 0.
    qint64 records = 0;
    /// Every column of the row, for the hourly masters' `Hour_h` and `Recs_h`.
    QVariantMap values;
};

/// One file on one day, as a loader gets it.
struct DayVisit
{
    const LogFileEntry* file = nullptr;
    /// Schema name under which the file is attached to the scratch database for this load.
    QString schema;
    DayIndexRow row;
    /// The part of the effective range that lies on this day (`from` <= `to`).
    QDateTime from;
    QDateTime to;
    bool descending = false;
};

/// What a loader did with one visit.
struct VisitResult
{
    qint64 rows = 0;
    /// The loader reached its row budget: the walk ends here and `reached` is the time it got to.
    bool stop = false;
    QDateTime reached;
};

/// The common walk of every log loader: find the days of a range in each file's day index,
/// and hand each file's day to the loader, one day at a time, in time order (backwards for a
/// descending view), with progress and cancel checks at each day. Meter files are attached
/// read-only for the length of the load; a file that cannot be opened is skipped (its entry's
/// `readable` cleared) and the rest of the query goes on.
class DayWalk
{
public:
    struct Result
    {
        qint64 rows = 0;
        bool noData = false;    ///< no file had a day row in the range
        bool cancelled = false; ///< the user cancelled; `rows` were read before
        bool stopped = false;   ///< a loader's row budget ended the walk
        QDateTime effectiveStart;
        QDateTime effectiveEnd;
        QDateTime reached; ///< where a stopped walk got to
    };
    using Visitor = std::function<VisitResult(const DayVisit&)>;

    DayWalk(TempQueryDatabase& scratch, LoadProgress& progress);

    /// Walks `masterTable` of every used file over [start, end]. `word` names the load in the
    /// progress text ("Loading {word} queries"). A day the loader cannot read (a missing or
    /// damaged day table) throws a Fault naming the meter file and the table; the files are
    /// detached in any case.
    Result run(QList<LogFileEntry>& files, const QString& masterTable, const QString& word,
               const QDateTime& start, const QDateTime& end, bool descending, const Visitor& visit);

    /// The word the day's progress counts in ("At {day}, you have {n} {word}."); "data
    /// points" unless set.
    void countsIn(const QString& word) { m_countWord = word; }

    /// "Update {table} Set [DeviceIndex]={index} Where [DeviceIndex]<0": stamps the rows a
    /// visit inserted with their file's device index (from 1).
    static void stampDevice(SqliteDatabase& db, const QString& table, qint64 deviceIndex);

    /// The text of a date in progress messages.
    static QString dateText(const QDate& date);
    static QString timeText(const QDateTime& time);

private:
    TempQueryDatabase& m_scratch;
    LoadProgress& m_progress;
    QString m_countWord;
};

} // namespace lorvane
