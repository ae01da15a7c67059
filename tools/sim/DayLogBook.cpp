// SPDX-License-Identifier: GPL-3.0-or-later
#include "DayLogBook.h"

#include "RowInsert.h"
#include "SimClock.h"
#include "store/SchemaCatalog.h"

namespace lorvane::sim {

DayLogBook::DayLogBook(const SimMeter& meter, LogKind kind) : m_meter(meter), m_kind(kind)
{
}

SqlStatement& DayLogBook::record(qint64 startSecond, qint64 endSecond)
{
    const qint64 day = SimClock::dayStart(startSecond);
    if (day != m_day) {
        closeDay();
        m_day = day;
        ++m_logTablesIndex;
        const TableLayout layout = m_meter.schema.dayTable(m_kind, m_logTablesIndex);
        m_meter.db->executeScript(layout.createSql());
        m_insert.emplace(m_meter.db->prepare(layout.insertSql()));
        m_first = startSecond;
        m_last = endSecond;
    }
    ++m_records;
    m_first = std::min(m_first, startSecond);
    m_last = std::max(m_last, endSecond);
    m_insert->reset();
    return *m_insert;
}

void DayLogBook::closeDay()
{
    if (m_records == 0)
        return;
    RowInsert(SchemaCatalog::masterTable(static_cast<int>(m_kind)))
        .set(QStringLiteral("Date/Time"), SimClock::text(m_day))
        .set(QStringLiteral("LogTablesIndex"), m_logTablesIndex)
        .set(QStringLiteral("HTable"), qint64(-1))
        .set(QStringLiteral("Recs"), m_records)
        .set(QStringLiteral("Records"), m_records)
        .set(QStringLiteral("StartDate/Time"), SimClock::text(m_first))
        .set(QStringLiteral("EndDate/Time"), SimClock::text(m_last))
        .run(m_meter);
    m_records = 0;
    m_insert.reset();
}

void DayLogBook::finish()
{
    closeDay();
}

} // namespace lorvane::sim
