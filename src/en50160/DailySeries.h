// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace lorvane {

class LoadProgress;
class SqliteDatabase;

/// One snapshot data point over a test period, for the daily plots of the report.
struct DailySeries
{
    qint32 dataId = 0;
    QString name;
    /// The stored stamps and values, in time order; values are kept in single precision.
    QStringList times;
    QList<float> values;
};

/// The snapshot series of a test period: the phase voltages (30001 to 30003), the unbalance
/// (30079, 30080, 30082) and the THD (30076 to 30078), as far as the meter logs them.
class DailySeriesReader
{
public:
    /// The logged ids that a daily plot uses, as an id list for a statement: "(0" followed
    /// by ",{id}" for each entry of `loggedIds` in the fixed list, then ")". The scan ends at
    /// the first zero entry and after 128 entries; a meter that logs none of them gets "(0)".
    static QString idList(const QList<qint64>& loggedIds);

    /// Reads the series from the snapshot log of each file (read-only) over [start, end]:
    /// every hour a day row marks as logged with records. Names come from the dictionary when
    /// one is given, otherwise the id as a number. Throws Fault when a file cannot be read.
    static QList<DailySeries> read(const QStringList& files, const QDateTime& start,
                                   const QDateTime& end, SqliteDatabase* dictionary,
                                   LoadProgress& progress);
};

} // namespace lorvane
