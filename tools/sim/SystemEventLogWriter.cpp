// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemEventLogWriter.h"

#include "DayLogBook.h"
#include "RowInsert.h"
#include "SimClock.h"
#include "SimStamp.h"

#include <algorithm>

namespace lorvane::sim {

namespace {

/// Event classes, numbered as the meter numbers them in `EV0`.
enum EventClass
{
    Power = 0,
    Password = 1,
    ChangeSettings = 2,
    ChangeTime = 4,
    TestMode = 5,
    LogDownload = 6,
    FeatureReset = 7,
};

const char* const classNames[] = {"Power",           "Password",     "Change Programmable Settings",
                                  "Change Firmware", "Change Time",  "Test Mode",
                                  "Log Download",    "Feature Reset"};

struct SystemEvent
{
    SimStamp at;
    int sequence;
    EventClass eventClass;
    int entry; ///< position of the description in its class's list
    QString description;
    bool inTestMode = false;
};

QString s(const char* text)
{
    return QString::fromLatin1(text);
}

QList<SystemEvent> plannedEvents(const SimSchedule& schedule)
{
    QList<SystemEvent> events;
    const qint64 first = schedule.startSecond();
    for (qint64 day = first; day < schedule.endSecond(); day += SimClock::secondsPerDay) {
        events << SystemEvent{
            {day + 6 * 3600, 0}, 1, LogDownload, 0, s("Download started (while logging)")};
        events << SystemEvent{{day + 6 * 3600 + 4, 500}, 1, LogDownload, 2, s("Download ended")};
    }
    const SimStamp session{first + 8 * 3600 + 15 * 60, 0};
    events << SystemEvent{session, 1, Password, 5, s("Level 2 access was granted")};
    events << SystemEvent{session, 2, ChangeSettings, 4, s("from Port 1: RS-232/485")};
    events << SystemEvent{session, 3, FeatureReset, 1, s("Reset maximum values")};
    const SimStamp clock{first + 12 * 3600, 0};
    events << SystemEvent{clock, 1, ChangeTime, 0,
                          s("Previous time was ") + SimClock::text(clock.second + 7)};
    events << SystemEvent{clock, 2, ChangeTime, 1,
                          s("Current time is ") + SimClock::text(clock.second)};
    if (schedule.hasOutage()) {
        events << SystemEvent{{schedule.outageStart(), 0},
                              1,
                              Power,
                              0,
                              s("Run Time was stopped (power loss, boot mode, etc.)")};
        const SimStamp back{schedule.outageEnd(), 0};
        events << SystemEvent{back, 1, Power, 0, s("Power or Watchdog reset")};
        events << SystemEvent{back, 2, Power, 1, s("Run Time has started")};
        events << SystemEvent{back, 3, Power, 2,
                              s("Run Time is active (features were initialized & enabled)")};
    }
    events << SystemEvent{{schedule.testStart(), 0},      1,   TestMode, 0,
                          s("Wh Test (Q1 & Q4) for TLC"), true};
    events << SystemEvent{{schedule.testEnd(), 0}, 1, TestMode, 0, s("Test Mode Ended"), true};
    events << SystemEvent{{schedule.testEnd(), 0}, 2, TestMode, 1, s("Energy Preset")};
    std::stable_sort(events.begin(), events.end(), [](const SystemEvent& a, const SystemEvent& b) {
        return a.at < b.at || (!(b.at < a.at) && a.sequence < b.sequence);
    });
    return events;
}

} // namespace

void SystemEventLogWriter::write(const SimMeter& meter, const SimSchedule& schedule)
{
    const TableLayout layout = meter.schema.systemEventLog();
    DayLogBook book(meter, LogKind::SystemEvent);
    for (const SystemEvent& e : plannedEvents(schedule)) {
        SqlStatement& insert = book.record(e.at.second, e.at.second);
        RowInsert row(layout.name());
        row.set(QStringLiteral("Index"), book.recordInDay())
            .set(QStringLiteral("Date/Time"), SimClock::text(e.at.second))
            .set(QStringLiteral("ms"), qint64(e.at.ms))
            .set(QStringLiteral("DTmode"), qint64(0))
            .set(QStringLiteral("InTestMode"), qint64(e.inTestMode ? -1 : 0))
            .set(QStringLiteral("EV0"), qint64(e.eventClass))
            .set(QStringLiteral("EV1"), qint64(e.entry))
            .set(QStringLiteral("EV2"), qint64(e.sequence));
        for (int i = 3; i <= 7; ++i)
            row.set(QStringLiteral("EV%1").arg(i), qint64(0));
        row.set(QStringLiteral("EventType"), s(classNames[e.eventClass]))
            .set(QStringLiteral("Description"), e.description)
            .set(QStringLiteral("Sequence"), qint64(e.sequence))
            .runPrepared(insert, layout);
    }
    book.finish();
}

} // namespace lorvane::sim
