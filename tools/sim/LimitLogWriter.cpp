// SPDX-License-Identifier: GPL-3.0-or-later
#include "LimitLogWriter.h"

#include "DayLogBook.h"
#include "RowInsert.h"
#include "SimClock.h"
#include "SimDataPoints.h"

namespace lorvane::sim {

void LimitLogWriter::write(const SimMeter& meter, const LimitEvents& limits)
{
    const TableLayout items = meter.schema.table(QStringLiteral("LimitsLogDataItem"));
    SqlStatement itemInsert = meter.db->prepare(items.insertSql());
    for (const LimitSetting& s : limits.settings()) {
        RowInsert(items.name())
            .set(QStringLiteral("LinkIndex"), s.linkIndex)
            .set(QStringLiteral("DataID"), qint64(s.dataId))
            .set(QStringLiteral("LimitID"), s.limitId)
            .set(QStringLiteral("LSet"), s.set)
            .set(QStringLiteral("LSAB"), s.aboveBelow)
            .set(QStringLiteral("LSet%"), s.setPercent)
            .set(QStringLiteral("DataIndex"),
                 qint64(SimDataPoints::snapshotPlan().indexOf(s.dataId)))
            .set(QStringLiteral("RecordFormat"), qint64(0))
            .runPrepared(itemInsert, items);
    }

    const TableLayout layout = meter.schema.limitsLog();
    DayLogBook book(meter, LogKind::Limits);
    for (const LimitEvent& e : limits.events()) {
        const LimitSetting& s = limits.setting(e.linkIndex);
        SqlStatement& insert = book.record(e.start.second, e.end.second);
        RowInsert(layout.name())
            .set(QStringLiteral("StartDate/Time"), SimClock::text(e.start.second))
            .set(QStringLiteral("Startms"), qint64(e.start.ms))
            .set(QStringLiteral("SDTmode"), qint64(0))
            .set(QStringLiteral("EndDate/Time"), SimClock::text(e.end.second))
            .set(QStringLiteral("Endms"), qint64(e.end.ms))
            .set(QStringLiteral("EDTmode"), qint64(0))
            .set(QStringLiteral("LState"), s.aboveBelow)
            .set(QStringLiteral("Duration"), e.start.until(e.end) / 1000.0)
            .set(QStringLiteral("LValue"), e.value)
            .set(QStringLiteral("DescriptionCode"), s.limitId)
            .set(QStringLiteral("LinkIndex"), e.linkIndex)
            .runPrepared(insert, layout);
    }
    book.finish();
}

} // namespace lorvane::sim
