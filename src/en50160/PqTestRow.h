// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace lorvane {

class PqTestStatistics;

/// One row of the test list as a report is built from it: the period and nominal values the
/// grid shows, and where the test's counts lie.
struct PqTestRow
{
    QDateTime start;
    QDateTime end;
    QString meterName;
    double frequency = 0;
    double nominalVoltage = 0;
    QString sourceDb;
    qint64 testId = 0;

    /// The row from the keys PqTestList::grid gives each row.
    static PqTestRow fromKeys(const QVariantMap& keys);

    /// The files of the same meter that hold the logs the evaluation reads beside the test:
    /// the PQ log, and the snapshot logs of the daily series. For a meter of one file that is
    /// the test's own file; a split-log meter keeps them in its other log files.
    QString pqLogFile() const;
    QStringList snapshotLogFiles() const;
};

/// Rebuilds the statistics block of a test row (the first step of a report): the period and
/// nominal values from the row, `P_Freq`, `P_FVF` and `bin_1` to `bin_152` from the test's own
/// meter file, read-only.
class PqTestRebuild
{
public:
    /// Fills `statistics`; false when the meter file has no test of that id (the counts stay
    /// zero and nothing else is gathered). Throws Fault when the file cannot be read ("There
    /// was an error accessing the database"), when a stamp is no date, or when a count is
    /// more than its field holds (the count and the field are named).
    static bool rebuild(const PqTestRow& row, PqTestStatistics& statistics);
};

} // namespace lorvane
