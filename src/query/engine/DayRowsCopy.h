// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DayWalk.h"
#include "store/LogKind.h"

#include <QString>
#include <functional>

namespace lorvane {

struct QueryContext;
struct ViewResult;

/// The step the event loaders share: walk the days of a log, copy each file's rows of the day
/// that lie in the range into one scratch table, and stamp them with the file's device index.
class DayRowsCopy
{
public:
    /// Makes the insert statement of one day: `dayTable` is the attached day table, already
    /// schema-qualified and quoted, `schema` the attached file's quoted schema name (for a
    /// file-wide companion table). The statement must take the range as two bound values
    /// (start, end, both `YYYY-MM-DD HH:MM:SS`).
    using InsertStatement = std::function<QString(const QString& schema, const QString& dayTable)>;

    /// Walks `kind`'s master table of `files` over the context's range and runs the insert for
    /// each day that has rows; `target` is the scratch table the statement fills. `word` names
    /// the load in the progress texts. Returns the walk's result with the rows copied. Throws
    /// StorageError when a statement fails.
    static DayWalk::Result run(QueryContext& context, QList<LogFileEntry>& files, LogKind kind,
                               const QString& target, const QString& word,
                               const InsertStatement& insert);

    /// The common case: every column of `target` but `DeviceIndex`, copied by name from the
    /// day table, for the rows whose `timeColumn` lies in the range, in the day table's order.
    static DayWalk::Result copyColumns(QueryContext& context, QList<LogFileEntry>& files,
                                       LogKind kind, const QString& target,
                                       const QString& timeColumn, const QString& word);

    /// Fills the range fields of a view's result from its walk: the effective range, or
    /// "No data found: {start} to {end}" with the asked range when nothing was found.
    static void describe(const DayWalk::Result& walk, const QueryContext& context,
                         ViewResult& result);
};

} // namespace lorvane
