// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogWriter.h"

#include "DayLogBook.h"
#include "RowInsert.h"
#include "SimClock.h"

#include <algorithm>

namespace lorvane::sim {

namespace {

struct RelayTrip
{
    int module;
    int relay;
    SimStamp trigger;
    qint64 link; ///< limit that caused it, 0 for none
};

/// Set delays in seconds of relays 0 and 1.
constexpr int setDelay[] = {2, 0};
constexpr double acknowledgeMs = 250.0;

void writeSettings(const SimMeter& meter, const LimitEvents& limits)
{
    const TableLayout items = meter.schema.table(QStringLiteral("RelayLogDataItem"));
    SqlStatement insert = meter.db->prepare(items.insertSql());
    auto common = [&](int relay, const QString& label) {
        RowInsert row(items.name());
        row.set(QStringLiteral("Index"), qint64(1))
            .set(QStringLiteral("ModuleIndex"), qint64(0))
            .set(QStringLiteral("ModuleAddress"), qint64(2))
            .set(QStringLiteral("ModuleLabel"), QStringLiteral("Relay Card 1"))
            .set(QStringLiteral("ModulePort"), qint64(1))
            .set(QStringLiteral("ModuleSlot"), qint64(1))
            .set(QStringLiteral("RelayIndex"), qint64(relay))
            .set(QStringLiteral("RelayLabel"), label)
            .set(QStringLiteral("SetDelay"), qint64(setDelay[relay]))
            .set(QStringLiteral("ResetDelay"), qint64(relay == 0 ? 5 : 1))
            .set(QStringLiteral("TextLabel_0"), QStringLiteral("NC"))
            .set(QStringLiteral("TextLabel_1"), QStringLiteral("NO"))
            .set(QStringLiteral("NormalState"), qint64(0))
            .set(QStringLiteral("Hysteresis"), qint64(0))
            .set(QStringLiteral("LogicControl"), qint64(0));
        return row;
    };
    // Logic input types: 1 a limit (id = its link index), 2 a status input (id = input).
    RowInsert shed = common(0, QStringLiteral("Load Shed"));
    shed.set(QStringLiteral("LogicStr1"), limits.setting(LimitEvents::currentLink).label)
        .set(QStringLiteral("LogicStr2"), QStringLiteral("Input 0 Main Breaker Closed"))
        .set(QStringLiteral("LogicComb1"), qint64(0)) // gate A: AND
        .set(QStringLiteral("Logic1Type"), qint64(1))
        .set(QStringLiteral("Logic1ID"), LimitEvents::currentLink)
        .set(QStringLiteral("Logic2Type"), qint64(2))
        .set(QStringLiteral("Logic2ID"), qint64(0))
        .runPrepared(insert, items);
    RowInsert alarm = common(1, QStringLiteral("Undervoltage Alarm"));
    alarm.set(QStringLiteral("LogicComb1"), qint64(1)); // gate A: OR
    for (int i = 1; i <= 3; ++i) {
        alarm.set(QStringLiteral("LogicStr%1").arg(i), limits.setting(i).label)
            .set(QStringLiteral("Logic%1Type").arg(i), qint64(1))
            .set(QStringLiteral("Logic%1ID").arg(i), qint64(i));
    }
    alarm.runPrepared(insert, items);
}

} // namespace

void RelayLogWriter::write(const SimMeter& meter, const LimitEvents& limits,
                           const SimSchedule& schedule)
{
    writeSettings(meter, limits);

    QList<RelayTrip> trips;
    for (const LimitEvent& e : limits.events()) {
        // The relays have no supply during the outage, so its low voltage trips nothing.
        if (schedule.poweredDown(e.start.second))
            continue;
        if (e.linkIndex == LimitEvents::currentLink)
            trips << RelayTrip{0, 0, e.start, e.linkIndex};
        else if (e.linkIndex <= 3)
            trips << RelayTrip{0, 1, e.start, e.linkIndex};
    }
    trips << RelayTrip{1, 0, {schedule.startSecond() + 12 * 3600, 0}, 0};
    std::stable_sort(trips.begin(), trips.end(),
                     [](const RelayTrip& a, const RelayTrip& b) { return a.trigger < b.trigger; });

    const TableLayout layout = meter.schema.relayLog();
    DayLogBook book(meter, LogKind::Relays);
    qint64 gIndex = 0;
    for (const RelayTrip& t : trips) {
        const int delay = t.module == 0 ? setDelay[t.relay] : 1;
        const SimStamp command = t.trigger.plus(delay * 1000.0);
        const SimStamp acknowledge = command.plus(acknowledgeMs);
        SqlStatement& insert = book.record(t.trigger.second, acknowledge.second);
        RowInsert row(layout.name());
        row.set(QStringLiteral("Index"), qint64(1))
            .set(QStringLiteral("ModuleIndex"), qint64(t.module))
            .set(QStringLiteral("RelayIndex"), qint64(t.relay));
        const SimStamp stamps[] = {t.trigger, command, acknowledge};
        for (int i = 1; i <= 3; ++i) {
            const SimStamp& s = stamps[i - 1];
            row.set(QStringLiteral("DT%1").arg(i), SimClock::text(s.second))
                .set(QStringLiteral("ms%1").arg(i), qint64(s.ms))
                .set(QStringLiteral("DT%1mode").arg(i), qint64(0))
                .set(QStringLiteral("DT%1CK").arg(i), qint64(0));
        }
        row.set(QStringLiteral("Duration12"), t.trigger.until(command))
            .set(QStringLiteral("Duration23"), command.until(acknowledge))
            .set(QStringLiteral("Duration13"), t.trigger.until(acknowledge))
            .set(QStringLiteral("Condition0"), qint64(0))
            .set(QStringLiteral("Condition1"), qint64(-1))
            .set(QStringLiteral("Condition2"), qint64(-1))
            .set(QStringLiteral("Condition3"), qint64(1))
            .set(QStringLiteral("Condition0Text"), QStringLiteral("NC"))
            .set(QStringLiteral("Condition3Text"), QStringLiteral("NO"))
            .set(QStringLiteral("InputInfo11"),
                 t.link > 0 ? limits.setting(t.link).label : QStringLiteral("Undefined"))
            .set(QStringLiteral("InputStatus"), qint64(1))
            .set(QStringLiteral("InputStatusB"), qint64(0))
            .set(QStringLiteral("GateStatus"), qint64(1))
            .set(QStringLiteral("GIndex"), ++gIndex)
            .runPrepared(insert, layout);
    }
    book.finish();
}

} // namespace lorvane::sim
