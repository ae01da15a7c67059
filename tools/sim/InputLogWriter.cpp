// SPDX-License-Identifier: GPL-3.0-or-later
#include "InputLogWriter.h"

#include "DayLogBook.h"
#include "RowInsert.h"
#include "SimClock.h"
#include "SimStamp.h"

#include <algorithm>

namespace lorvane::sim {

namespace {

struct InputSetting
{
    const char* label;
    const char* state0;
    const char* state1;
    int normalState;
};

const InputSetting inputSettings[] = {{"Main Breaker", "Open", "Closed", 1},
                                      {"Door Switch", "Closed", "Open", 0},
                                      {"Transfer Switch", "Utility", "Generator", 0},
                                      {"Alarm Reset", "Idle", "Reset", 0}};

struct InputChange
{
    int input;
    int status; ///< the state entered at the start
    SimStamp start;
    SimStamp end;
};

} // namespace

void InputLogWriter::write(const SimMeter& meter, const SimSchedule& schedule)
{
    const TableLayout items = meter.schema.table(QStringLiteral("InputLogDataItem"));
    SqlStatement itemInsert = meter.db->prepare(items.insertSql());
    int input = 0;
    for (const InputSetting& s : inputSettings) {
        RowInsert(items.name())
            .set(QStringLiteral("Index"), qint64(1))
            .set(QStringLiteral("ModuleIndex"), qint64(0))
            .set(QStringLiteral("ModulePort"), qint64(1))
            .set(QStringLiteral("ModuleAddress"), qint64(1))
            .set(QStringLiteral("InputIndex"), qint64(input++))
            .set(QStringLiteral("ModuleLabel"), QStringLiteral("Input Card 1"))
            .set(QStringLiteral("InputLabel"), QString::fromLatin1(s.label))
            .set(QStringLiteral("TextLabel_0"), QString::fromLatin1(s.state0))
            .set(QStringLiteral("TextLabel_1"), QString::fromLatin1(s.state1))
            .set(QStringLiteral("NormalState"), qint64(s.normalState))
            .set(QStringLiteral("InputFlip"), qint64(0))
            .runPrepared(itemInsert, items);
    }

    QList<InputChange> changes;
    for (qint64 day = schedule.startSecond(); day < schedule.endSecond();
         day += SimClock::secondsPerDay) {
        const SimStamp doorOpen{day + 7 * 3600 + 30 * 60 + 12, 250};
        changes << InputChange{1, 1, doorOpen, doorOpen.plus(268250.0)};
        const SimStamp reset{day + 16 * 3600 + 45 * 60, 0};
        changes << InputChange{3, 1, reset, reset.plus(800.0)};
    }
    if (schedule.hasOutage()) {
        const SimStamp trip{schedule.outageStart(), 120};
        changes << InputChange{0, 0, trip, SimStamp{schedule.outageEnd() + 35, 0}};
        // Over the first midnight: the record is filed under the day it started.
        const SimStamp transfer{schedule.startSecond() + SimClock::secondsPerDay - 90, 0};
        changes << InputChange{2, 1, transfer, transfer.plus(300000.0)};
    }
    std::stable_sort(changes.begin(), changes.end(),
                     [](const InputChange& a, const InputChange& b) { return a.start < b.start; });

    const TableLayout layout = meter.schema.inputLog();
    DayLogBook book(meter, LogKind::Inputs);
    for (const InputChange& c : changes) {
        SqlStatement& insert = book.record(c.start.second, c.end.second);
        RowInsert(layout.name())
            .set(QStringLiteral("Index"), qint64(1))
            .set(QStringLiteral("DT1"), SimClock::text(c.start.second))
            .set(QStringLiteral("ms1"), qint64(c.start.ms))
            .set(QStringLiteral("DT1mode"), qint64(0))
            .set(QStringLiteral("DT2"), SimClock::text(c.end.second))
            .set(QStringLiteral("ms2"), qint64(c.end.ms))
            .set(QStringLiteral("DT2mode"), qint64(0))
            .set(QStringLiteral("ModuleIndex"), qint64(0))
            .set(QStringLiteral("InputIndex"), qint64(c.input))
            .set(QStringLiteral("Status"), qint64(c.status))
            .set(QStringLiteral("DescriptionCode"), qint64(0))
            .set(QStringLiteral("Duration"), c.start.until(c.end))
            .runPrepared(insert, layout);
    }
    book.finish();
}

} // namespace lorvane::sim
