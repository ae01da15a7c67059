// SPDX-License-Identifier: GPL-3.0-or-later
#include "CaptureDayTables.h"

#include "SimClock.h"
#include "SimMeter.h"
#include "platform/SqlStatement.h"
#include "store/SchemaCatalog.h"

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
    Day& day = m_days[SimClock::dayStart(start.second)];
    if (day.rows.isEmpty() || start.msSince(day.first) < 0.0)
        day.first = start;
    if (day.rows.isEmpty() || end.msSince(day.last) > 0.0)
        day.last = end;
    day.rows << row;
}

void CaptureDayTables::write() const
{
    SqliteDatabase& db = *m_meter.db;
    const TableLayout master = m_meter.schema.table(SchemaCatalog::masterTable(int(m_kind)));
    SqlStatement masterInsert = db.prepare(master.insertSql());
    qint64 n = 0;
    for (auto it = m_days.cbegin(); it != m_days.cend(); ++it) {
        const TableLayout layout = m_meter.schema.dayTable(m_kind, ++n);
        db.executeScript(layout.createSql());
        SqlStatement rowInsert = db.prepare(layout.insertSql());
        for (const QVariantMap& row : it->rows)
            insertRow(rowInsert, layout, row);

        const qint64 records = it->rows.size();
        insertRow(masterInsert, master,
                  {{QStringLiteral("Date/Time"), SimClock::text(it.key())},
                   {QStringLiteral("LogTablesIndex"), n},
                   {QStringLiteral("HTable"), -1},
                   {QStringLiteral("Recs"), records},
                   {QStringLiteral("Records"), records},
                   {QStringLiteral("StartDate/Time"), it->first.text()},
                   {QStringLiteral("EndDate/Time"), it->last.text()}});
    }
}

} // namespace lorvane::sim
