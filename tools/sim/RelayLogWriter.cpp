// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogWriter.h"

#include "DayLogBook.h"
#include "RelayLogicPlan.h"
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
    qint64 link;          ///< limit that caused it, 0 for none
    QList<int> on;        ///< the logic inputs set at the trigger
    int endCondition = 1; ///< 1 "NO"; 2 locked
};

/// Set and reset delays in seconds of relays 0, 1 and 2.
constexpr int setDelay[] = {2, 0, 3};
constexpr int resetDelay[] = {5, 1, 10};
constexpr double acknowledgeMs = 250.0;
constexpr int lockoutRelay = 2;

RelayLogicPlan::Gates gatesOf(int relay)
{
    return relay == 0   ? RelayLogicPlan::loadShed()
           : relay == 1 ? RelayLogicPlan::undervoltage()
                        : RelayLogicPlan::lockout();
}

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
            .set(QStringLiteral("ResetDelay"), qint64(resetDelay[relay]))
            .set(QStringLiteral("TextLabel_0"), QStringLiteral("NC"))
            .set(QStringLiteral("TextLabel_1"), QStringLiteral("NO"))
            .set(QStringLiteral("NormalState"), qint64(0))
            .set(QStringLiteral("Hysteresis"), qint64(relay == lockoutRelay ? 5 : 0))
            .set(QStringLiteral("LogicControl"), qint64(relay == lockoutRelay ? 1 : 0));
        const RelayLogicPlan::Gates gates = gatesOf(relay);
        for (int g = 0; g < int(gates.size()); ++g)
            row.set(QStringLiteral("LogicComb%1").arg(g + 1), qint64(gates[g]));
        return row;
    };
    // Logic input types: 1 a limit (id = its link index), 2 a status input (id = input).
    RowInsert shed = common(0, QStringLiteral("Load Shed"));
    shed.set(QStringLiteral("LogicStr1"), limits.setting(LimitEvents::currentLink).label)
        .set(QStringLiteral("LogicStr2"), QStringLiteral("Input 0 Main Breaker Closed"))
        .set(QStringLiteral("Logic1Type"), qint64(1))
        .set(QStringLiteral("Logic1ID"), LimitEvents::currentLink)
        .set(QStringLiteral("Logic2Type"), qint64(2))
        .set(QStringLiteral("Logic2ID"), qint64(0))
        .runPrepared(insert, items);
    RowInsert alarm = common(1, QStringLiteral("Undervoltage Alarm"));
    for (int i = 1; i <= 3; ++i) {
        alarm.set(QStringLiteral("LogicStr%1").arg(i), limits.setting(i).label)
            .set(QStringLiteral("Logic%1Type").arg(i), qint64(1))
            .set(QStringLiteral("Logic%1ID").arg(i), qint64(i));
    }
    alarm.runPrepared(insert, items);
    RowInsert lockout = common(lockoutRelay, QStringLiteral("Feeder Lockout"));
    for (const auto& [n, name] : RelayLogicPlan::lockoutInputs())
        lockout.set(QStringLiteral("LogicStr%1").arg(n), name);
    lockout.runPrepared(insert, items);
}

/// The lockout relay trips twice a day: at 09:30:00.500 through its gates (the inputs set
/// change with the day), and at 21:15:00.000 through remote trip input 43, after which it
/// stays open and locked.
QList<RelayTrip> lockoutTrips(const SimSchedule& schedule)
{
    const QList<QList<int>> patterns{{1, 3, 6}, {2, 4, 5, 8}, {1, 2, 7}};
    QList<RelayTrip> trips;
    for (int day = 0; day < schedule.days(); ++day) {
        const qint64 midnight = schedule.startSecond() + qint64(day) * 86400;
        trips << RelayTrip{0,
                           lockoutRelay,
                           {midnight + 9 * 3600 + 30 * 60, 500},
                           0,
                           patterns.at(day % patterns.size()),
                           1};
        trips << RelayTrip{0, lockoutRelay, {midnight + 21 * 3600 + 15 * 60, 0}, 0, {43}, 2};
    }
    return trips;
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
            trips << RelayTrip{0, 0, e.start, e.linkIndex, {1, 2}};
        else if (e.linkIndex <= 3)
            trips << RelayTrip{0, 1, e.start, e.linkIndex, {int(e.linkIndex)}};
    }
    trips << lockoutTrips(schedule);
    trips << RelayTrip{1, 0, {schedule.startSecond() + 12 * 3600, 0}, 0, {}};
    std::stable_sort(trips.begin(), trips.end(),
                     [](const RelayTrip& a, const RelayTrip& b) { return a.trigger < b.trigger; });

    const TableLayout layout = meter.schema.relayLog();
    DayLogBook book(meter, LogKind::Relays);
    qint64 gIndex = 0;
    for (const RelayTrip& t : trips) {
        const int delay = t.module == 0 ? setDelay[t.relay] : 1;
        const RelayLogicPlan::Words words = RelayLogicPlan::words(gatesOf(t.relay), t.on);
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
            .set(QStringLiteral("Condition3"), qint64(t.endCondition))
            .set(QStringLiteral("Condition0Text"), QStringLiteral("NC"))
            .set(QStringLiteral("Condition3Text"),
                 t.endCondition == 2 ? QStringLiteral("Locked,") : QStringLiteral("NO"))
            .set(QStringLiteral("InputInfo11"),
                 t.link > 0 ? limits.setting(t.link).label : QStringLiteral("Undefined"))
            .set(QStringLiteral("InputStatus"), words.inputStatus)
            .set(QStringLiteral("InputStatusB"), words.inputStatusB)
            .set(QStringLiteral("GateStatus"), words.gateStatus)
            .set(QStringLiteral("GIndex"), ++gIndex)
            .runPrepared(insert, layout);
    }
    book.finish();
}

} // namespace lorvane::sim
