// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <functional>

namespace lorvane {

class LoadProgress;

/// One data point of the overview grid: "Sets", "First", "Last", "Total Points".
struct OverviewSet
{
    qint32 dataId = 0;
    /// The first and last hour that holds values (invalid when none does).
    QDateTime first;
    QDateTime last;
    qint64 totalPoints = 0;
};

/// What a large snapshot log holds, before any value is loaded: for each data point of
/// `DataPoints` a table `HistOverview_{DataID}` in the meter file with one row per hour that
/// holds values of it (`Index`, `DateIndex` the day's table index, `HourNum`, `DayNum` the day
/// counted from 1970-01-01, `Count`). Writing these tables is the one change this program
/// makes to a meter file besides the schema upgrade: the caller asks the user first.
class OverviewAnalysis
{
public:
    /// A line for the status list.
    using Lines = std::function<void(const QString& line)>;
    struct Result
    {
        bool completed = false;
        int tables = 0;
        qint64 rows = 0;
        int errors = 0;
    };

    /// Rebuilds the tables of `path`. A read-only file is refused with its message before
    /// anything is opened for writing. The whole run is one transaction: a cancel or a failure
    /// rolls it back and the tables of the run before stay whole. A failing insert shows
    /// "Error" and the run goes on. Throws Fault (read-only) and StorageError.
    static Result analyze(const QString& path, const Lines& lines, LoadProgress& progress);
    /// The sets and their sums from the tables (a data point never analysed has no hours).
    /// Opens the file read-only.
    static QList<OverviewSet> load(const QString& path, const Lines& lines);
    /// The table of a data point.
    static QString tableOf(qint32 dataId);
};

} // namespace lorvane
