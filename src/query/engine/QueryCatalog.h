// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LogFileEntry.h"
#include "store/LogKind.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace lorvane {

class TempQueryDatabase;

/// A query's numbers: `Q` from `AllQueries`, `S` the slice of `HistSubQuery_{Q}`.
struct QueryNumbers
{
    qint64 query = -1;
    qint64 slice = -1;

    /// `{base}_{Q}`
    QString table(const QString& base) const;
    /// `{base}_{Q}_{S}`
    QString sliceTable(const QString& base) const;
};

/// The catalogue of queries in the scratch database: each view's rows are copied into tables
/// of their own whose names carry the query's numbers, made from the scratch template.
class QueryCatalog
{
public:
    explicit QueryCatalog(TempQueryDatabase& scratch) : m_scratch(scratch) {}

    /// "create query": the `AllQueries` row, `LogDevices_{Q}` with one row per file (index
    /// from 1), `HistSubQuery_{Q}` with the first slice, and the slice tables of `queryType`.
    /// Times are stored as `YYYY-MM-DD HH:MM:SS`. Throws StorageError.
    QueryNumbers createQuery(const QDateTime& start, const QDateTime& end, LogKind queryType,
                             const QList<LogFileEntry>& files);
    /// A further slice of a running query over a new range, with its own slice tables.
    QueryNumbers addSlice(qint64 query, const QDateTime& start, const QDateTime& end,
                          LogKind queryType);
    /// Stores the end a slice reached (the row budget stops a slice early).
    void setSliceEnd(const QueryNumbers& numbers, const QDateTime& end);

    /// Base names of the tables a query type owns, in the order they are made; those with a
    /// slice number and those without.
    static QStringList sliceTableBases(LogKind queryType);
    static QStringList queryTableBases(LogKind queryType);

    /// The contract's text form of a time, as stored in every date column.
    static QString stamp(const QDateTime& time);

private:
    qint64 newSlice(qint64 query, const QDateTime& start, const QDateTime& end);

    TempQueryDatabase& m_scratch;
};

} // namespace lorvane
