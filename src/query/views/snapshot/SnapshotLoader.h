// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SqlStatement.h"
#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"
#include "store/LogKind.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <memory>

namespace lorvane {

struct QueryContext;
class SqliteDatabase;

/// Reads snapshot (or energy/demand) values of the selected data points into
/// `HistLog_{Q}_{S}`: hour by hour through each day the master names, the hour's time index
/// and value tables joined where they stand in the attached meter file. A slice ends at the row
/// budget `TempLogRecSize`; the time it reached is where the next slice goes on.
class SnapshotLoader
{
public:
    /// `logKind` Snapshots (master `AllHistoricalLogs`) or Demand (energy/demand,
    /// `AllEnergyDemandLogs`). The context must outlive the loader.
    SnapshotLoader(QueryContext& context, LogKind logKind);

    /// Loads slice `numbers` over the range from `from` to `to` in the view's direction
    /// (`from` later than `to` when descending). The result's `stopped` says the budget ended
    /// the slice at `reached`; a slice never ends inside an instant: a first instant larger
    /// than the budget is read whole. Throws StorageError when a statement fails.
    /// `files` is the expanded file list the query was created with.
    DayWalk::Result load(const QueryNumbers& numbers, QList<LogFileEntry>& files,
                         const QDateTime& from, const QDateTime& to);

    /// The master table of a snapshot kind.
    static QString masterTable(LogKind logKind);

private:
    VisitResult visit(const DayVisit& visit);
    /// Reads one hour of one file; returns the rows added.
    qint64 readHour(const DayVisit& visit, int hour, const QDateTime& from, const QDateTime& to);
    /// Chooses the mode to leave out of an hour that holds both modes; -1 for none.
    /// `times` is the hour's attached time index, `bounds` the part of it read.
    int excludedModeOfHour(const QString& times, const QVariantList& bounds);
    /// Ends the slice at the last whole instant once the budget is spent in the hour just read.
    void cutAtBudget();
    /// The highest row number of the slice table (0 when empty).
    qint64 lastRowid();
    /// Moves the cut back to the last whole instant the budget holds over every file read so
    /// far; returns the rows taken out.
    qint64 trimToBudget();
    void copyScaledFormats(const DayVisit& visit);
    /// The data ids read from `file`: the selected points for snapshots, the meter's demand
    /// items for demand; empty reads every point.
    const QList<qint64>& idsOf(const LogFileEntry& file) const;
    QString filterSql(const QList<qint64>& ids) const;
    QVariantList filterValues(const QList<qint64>& ids) const;

    QueryContext& m_context;
    LogKind m_logKind;
    QueryNumbers m_numbers;
    QString m_target;
    qint64 m_rows = 0;
    /// The slice's rows are numbered in the order they were read: the rows of the day being
    /// read, and of the hour, are those above these row numbers.
    QDate m_day;
    qint64 m_dayStartRowid = 0;
    qint64 m_dayStartRows = 0;
    qint64 m_hourStartRowid = 0;
    /// The insert of the hour just read, before its order and limit, with its values.
    QString m_hourInsert;
    QVariantList m_hourValues;
    std::unique_ptr<SqlStatement> m_columnsOf;
    std::unique_ptr<SqlStatement> m_lastRowid;
    /// Set once the budget is spent: later days are not read, other files of the same day
    /// only up to this time, so that no instant is split across slices.
    QDateTime m_cut;
    QDate m_cutDay;
    /// Daylight saving state across the walk: whether the hour being read holds both modes,
    /// which mode is left out, and the mode read last (-1 before the first row).
    bool m_bothModes = false;
    int m_excludedMode = -1;
    int m_lastMode = -1;
    QSet<QString> m_formatsCopied;
};

} // namespace lorvane
