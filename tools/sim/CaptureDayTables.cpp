// SPDX-License-Identifier: GPL-3.0-or-later
#include "CaptureDayTables.h"

#include "DayLogBook.h"
#include "SimClock.h"
#include "SimMeter.h"
#include "platform/SqlStatement.h"

#include <cmath>

namespace lorvane::sim {

void CaptureDayTables::insertRow(SqlStatement& statement, const TableLayout& layout,
                                 const QVariantMap& row)
{
    int position = 1;
    for (const ColumnLayout& column : layout.columns())
        statement.bind(position++, row.value(column.name));
    statement.run();
    statement.reset();
}

CaptureDayTables::CaptureDayTables(const SimMeter& meter, LogKind kind)
    : m_meter(meter), m_kind(kind)
{
}

QVariant CaptureDayTables::msValue(double ms) const
{
    if (m_meter.schema.version() >= 9.0 - 1e-9)
        return std::round(ms * 10.0) / 10.0;
    return static_cast<qint64>(std::floor(ms));
}

void CaptureDayTables::add(const QVariantMap& row, const CaptureStamp& start,
                           const CaptureStamp& end)
{
    m_days[SimClock::dayStart(start.second)].append({row, start.second, end.second});
}

void CaptureDayTables::write() const
{
    // The day log book makes each day's table and its master row with counts and span.
    DayLogBook book(m_meter, m_kind);
    const TableLayout layout = m_meter.schema.dayTable(m_kind, 0);
    for (const QList<Row>& day : m_days) {
        for (const Row& row : day)
            insertRow(book.record(row.startSecond, row.endSecond), layout, row.values);
    }
    book.finish();
}

} // namespace lorvane::sim
