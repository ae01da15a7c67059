// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CaptureStamp.h"
#include "store/LogKind.h"
#include "store/TableLayout.h"

#include <QMap>
#include <QVariantMap>

namespace lorvane {
class SqlStatement;
}

namespace lorvane::sim {

struct SimMeter;

/// Rows of the waveform or PQ log gathered by the day of their start stamp and written as
/// per-day tables `{prefix}{n}` (n from 1 in day order) with one master row per day.
class CaptureDayTables
{
public:
    CaptureDayTables(const SimMeter& meter, LogKind kind);

    /// Files a row (column name to value; absent columns stay NULL) under the day of
    /// `start`; `start` and `end` widen that day's span columns.
    void add(const QVariantMap& row, const CaptureStamp& start, const CaptureStamp& end);
    /// A stamp's ms in the column type of the file: real with a tenth from schema 9.0,
    /// whole milliseconds before.
    QVariant msValue(double ms) const;
    /// Binds `row` in the column order of `layout` (absent columns NULL), runs and resets the
    /// prepared insert of that layout.
    static void insertRow(SqlStatement& statement, const TableLayout& layout,
                          const QVariantMap& row);

    /// Creates the day tables and inserts the rows and master rows. Engine errors propagate
    /// as StorageError; the caller owns the transaction.
    void write() const;

private:
    struct Row
    {
        QVariantMap values;
        qint64 startSecond = 0;
        qint64 endSecond = 0;
    };

    const SimMeter& m_meter;
    LogKind m_kind;
    /// Rows by the day of their start, days in order as the day log book wants them.
    QMap<qint64, QList<Row>> m_days;
};

} // namespace lorvane::sim
