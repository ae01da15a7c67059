// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SimMeter.h"
#include "platform/SqlStatement.h"
#include "store/LogKind.h"

#include <optional>

namespace lorvane::sim {

/// Files the records of a per-day log: records arrive in start order, each is filed under the
/// day of its start stamp, and at each change of day the day's table is created and its
/// master row written (`LogTablesIndex` from 1, `HTable` -1, the counts, and the span from the
/// earliest start to the latest end). Days without records get neither table nor row.
class DayLogBook
{
public:
    DayLogBook(const SimMeter& meter, LogKind kind);
    DayLogBook(const DayLogBook&) = delete;
    DayLogBook& operator=(const DayLogBook&) = delete;

    /// The prepared insert of the day table for a record from `startSecond` to `endSecond`
    /// (seconds of the simulator's clock). Bind all columns of the day layout and run it.
    /// Throws StorageError when the table cannot be made.
    SqlStatement& record(qint64 startSecond, qint64 endSecond);
    /// Number of the current record within its day, from 1.
    qint64 recordInDay() const { return m_records; }
    /// Writes the master row of the last day; call once after the last record.
    void finish();

private:
    void closeDay();

    const SimMeter& m_meter;
    LogKind m_kind;
    qint64 m_day = -1;
    qint64 m_logTablesIndex = 0;
    qint64 m_records = 0;
    qint64 m_first = 0;
    qint64 m_last = 0;
    std::optional<SqlStatement> m_insert;
};

} // namespace lorvane::sim
