// SPDX-License-Identifier: GPL-3.0-or-later
#include "SnapshotLogWriter.h"

#include "MeterReadings.h"
#include "RowInsert.h"
#include "SimClock.h"
#include "store/SchemaCatalog.h"

#include <array>
#include <optional>

namespace lorvane::sim {

namespace {

/// The open day of an interval log: its hour tables and the counts of its master row.
class IntervalDay
{
public:
    IntervalDay(const SimMeter& meter, LogKind kind) : m_meter(meter), m_kind(kind) {}

    bool isOpen() const { return m_day >= 0; }
    qint64 day() const { return m_day; }

    void open(qint64 day)
    {
        m_day = day;
        ++m_logTablesIndex;
        m_recs.fill(0);
        m_hour = -1;
        m_records = 0;
    }

    /// Statements for an instant of `hour`; the hour's tables are made at its first instant.
    void enterHour(int hour)
    {
        if (hour == m_hour)
            return;
        m_hour = hour;
        const TableLayout index = m_meter.schema.hourTimeIndexTable(m_kind, m_logTablesIndex, hour);
        const TableLayout values = m_meter.schema.hourValueTable(m_kind, m_logTablesIndex, hour);
        m_meter.db->executeScript(index.createSql());
        m_meter.db->executeScript(values.createSql());
        m_indexInsert.emplace(m_meter.db->prepare(index.insertSql()));
        m_valueInsert.emplace(m_meter.db->prepare(values.insertSql()));
        m_profileIndex = index.columnNames().contains(QStringLiteral("ProfileIndex"));
    }

    SqlStatement& indexInsert() { return *m_indexInsert; }
    /// The hour's time index has ProfileIndex (snapshots from schema 8.3, demand always).
    bool withProfileIndex() const { return m_profileIndex; }
    SqlStatement& valueInsert() { return *m_valueInsert; }

    void count(qint64 second)
    {
        if (m_records == 0)
            m_first = second;
        m_last = second;
        ++m_records;
        ++m_recs[static_cast<size_t>(m_hour)];
    }

    void close()
    {
        if (m_records > 0) {
            RowInsert row(SchemaCatalog::masterTable(static_cast<int>(m_kind)));
            row.set(QStringLiteral("Date/Time"), SimClock::text(m_day))
                .set(QStringLiteral("LogTablesIndex"), m_logTablesIndex);
            for (int h = 0; h < 24; ++h)
                row.set(QStringLiteral("Hour_%1").arg(h),
                        qint64(m_recs[static_cast<size_t>(h)] > 0 ? -1 : 0));
            for (int h = 0; h < 24; ++h)
                row.set(QStringLiteral("Recs_%1").arg(h), m_recs[static_cast<size_t>(h)]);
            row.set(QStringLiteral("Records"), m_records)
                .set(QStringLiteral("StartDate/Time"), SimClock::text(m_first))
                .set(QStringLiteral("EndDate/Time"), SimClock::text(m_last))
                .run(m_meter);
        } else {
            --m_logTablesIndex; // a day without instants keeps no number
        }
        m_indexInsert.reset();
        m_valueInsert.reset();
        m_day = -1;
    }

private:
    const SimMeter& m_meter;
    LogKind m_kind;
    qint64 m_day = -1;
    qint64 m_logTablesIndex = 0;
    int m_hour = -1;
    std::array<qint64, 24> m_recs{};
    qint64 m_records = 0;
    qint64 m_first = 0;
    qint64 m_last = 0;
    std::optional<SqlStatement> m_indexInsert;
    bool m_profileIndex = true;
    std::optional<SqlStatement> m_valueInsert;
};

} // namespace

void SnapshotLogWriter::write(const SimMeter& meter, const IntervalLogPlan& plan,
                              const SimSchedule& schedule)
{
    MeterReadings readings(*meter.model, meter.seed);
    IntervalDay day(meter, plan.kind);
    const qint64 step = 60LL * std::max(1, plan.intervalMinutes);
    qint64 timeIndex = 0;
    for (qint64 t = schedule.startSecond(); t < schedule.endSecond(); t += step) {
        const qint64 midnight = SimClock::dayStart(t);
        if (day.isOpen() && day.day() != midnight)
            day.close();
        if (!day.isOpen())
            day.open(midnight);
        if (schedule.poweredDown(t))
            continue;
        day.enterHour(SimClock::hour(t));
        ++timeIndex;
        SqlStatement& index = day.indexInsert();
        index.reset();
        index.bind(1, timeIndex)
            .bind(2, SimClock::text(t))
            .bind(3, qint64(0))
            .bind(4, qint64(0))
            .bind(5, qint64(schedule.inTestMode(t) ? plan.testTypeId : plan.typeId));
        if (day.withProfileIndex())
            index.bind(6, qint64(0));
        index.run();
        SqlStatement& values = day.valueInsert();
        for (qint32 id : plan.points) {
            values.reset();
            values.bind(1, timeIndex).bind(2, qint64(id)).bind(3, readings.value(id, t));
            values.run();
        }
        day.count(t);
    }
    if (day.isOpen())
        day.close();
}

} // namespace lorvane::sim
