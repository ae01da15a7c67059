// SPDX-License-Identifier: GPL-3.0-or-later
// The power graph session over the records of a simulated meter's snapshot query: the records
// of every slice, the entry checks, the steps and Auto Show on a hand-driven clock.
#include "powergraph/PGraphSession.h"

#include "powergraph/AutoShow.h"
#include "powergraph/PGraphChoiceCheck.h"
#include "powergraph/PGraphRecords.h"
#include "query/InputSimFixture.h"
#include "query/views/snapshot/SnapshotView.h"
#include "store/LogKind.h"

#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

namespace {

constexpr qint64 quarterHour = 15 * 60 * 1000;

/// A snapshot query over both simulated days, read to its end in slices of `budget` values.
struct SimQuery
{
    SimMeters sim;
    QueryContext context;
    std::unique_ptr<SnapshotView> view;

    explicit SimQuery(int budget)
    {
        context = sim.context({sim.meter(QStringLiteral("Power"))});
        context.tempLogRecSize = budget;
        context.dataIds = {20617, 20621, 20625};
        view = std::make_unique<SnapshotView>(context, LogKind::Snapshots);
        view->load();
        while (!view->pager().allRead())
            view->step(1);
    }
    qint64 query() const { return view->numbers().query; }
};

/// A session over `count` items of one record a quarter hour over `hours` from 2024-03-04.
PGraphSession sessionOf(int count, int hours)
{
    const qint64 day = simTime("2024-03-04 00:00:00").toMSecsSinceEpoch();
    QList<PGraphItem> items;
    for (int i = 0; i < count; ++i) {
        PGraphItem item;
        item.name = QStringLiteral("Item %1").arg(i + 1);
        for (qint64 t = 0; t < hours * 4; ++t)
            item.records << PGraphRecord{day + t * quarterHour, double(i * 10 + t % 7)};
        items << item;
    }
    return PGraphSession(items, PGraphView{});
}

class HandClock : public AutoShowClock
{
public:
    void start(int intervalMs) override { intervals << intervalMs; }
    void stop() override { ++stops; }
    QList<int> intervals;
    int stops = 0;
};

} // namespace

TEST(PGraphRecords, EverySliceReadCountsOnceInTimeOrder)
{
    // A small budget splits the two days into many slices: the graph takes them all.
    SimQuery q(200);
    ASSERT_GT(q.view->pager().pages(), 2);
    const QList<PGraphChoice> list = PGraphRecords::choices(*q.sim.scratch, q.query(), nullptr);
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list.first().name, "20617");
    const QList<PGraphItem> items =
        PGraphRecords::load(*q.sim.scratch, q.query(), {list.at(0), list.at(2)}, nullptr);
    ASSERT_EQ(items.size(), 2);
    // Two days of quarter hours less the simulated outage of day 2, 10:00 to 13:00.
    const qint64 outage = simTime("2024-03-05 10:00:00").toMSecsSinceEpoch();
    for (const PGraphItem& item : items) {
        EXPECT_EQ(item.records.size(), 2 * 96 - 12) << item.dataId;
        for (int i = 1; i < item.records.size(); ++i) {
            const qint64 before = item.records.at(i - 1).time;
            ASSERT_EQ(item.records.at(i).time - before,
                      before == outage - quarterHour ? 13 * quarterHour : quarterHour);
        }
        EXPECT_LE(item.minimum(), item.maximum());
    }
    EXPECT_EQ(items.at(1).dataId, 20625);
}

TEST(PGraphSession, ViewEntryChecks)
{
    PGraphSession session = sessionOf(1, 48);
    const PGraphView before = session.view();
    struct Case
    {
        const char* days;
        const char* message; // empty: accepted
    };
    const Case cases[] = {
        {"24855", ""},
        {"24856", "Number of days to view cannot be > 24855"},
        {"0", "Number of days to view cannot be 0 or less"},
        {"-1", "Number of days to view cannot be 0 or less"},
        {"many", "Number of days to view cannot be 0 or less"},
        {"0.5", ""},
    };
    double shown = before.numDaysView;
    for (const Case& c : cases) {
        PGraphSession::Entries e = session.entries();
        e.numDaysView = QString::fromLatin1(c.days);
        const std::optional<QString> refused = session.apply(e);
        EXPECT_EQ(refused.value_or(QString()), QString::fromLatin1(c.message)) << c.days;
        if (!refused)
            shown = QString::fromLatin1(c.days).toDouble();
        // A refused entry leaves the last view.
        EXPECT_EQ(session.view().numDaysView, shown) << c.days;
    }
    PGraphSession::Entries e = session.entries();
    e.maxY = QStringLiteral("high");
    EXPECT_TRUE(session.apply(e).value_or(QString()).contains(QStringLiteral("high")));
    e = session.entries();
    e.start = QStringLiteral("31/31/2024");
    EXPECT_TRUE(session.apply(e));
    EXPECT_EQ(session.view().start, before.start);
}

TEST(PGraphSession, StepsByViewOrBySampleStopWhereTheRecordsEnd)
{
    struct Case
    {
        bool bySample;
        double days;
        PGraphSession::Direction direction;
        int steps;      // steps taken before the records end
        qint64 startAt; // the view's start then, minutes from the first midnight
    };
    using D = PGraphSession::Direction;
    const Case cases[] = {
        {false, 1, D::Forward, 1, 24 * 60},   // 48 h of records: one more day
        {false, 0.5, D::Forward, 3, 36 * 60}, // four half days
        {false, 1, D::Reverse, 0, 0},         // nothing before the first day
        {true, 1, D::Forward, 191, 191 * 15}, // every record time once
    };
    for (const Case& c : cases) {
        PGraphSession session = sessionOf(2, 48);
        const qint64 midnight = session.view().start;
        session.view().moveBySample = c.bySample;
        session.view().numDaysView = c.days;
        int steps = 0;
        while (session.step(c.direction) && steps < 1000)
            ++steps;
        EXPECT_EQ(steps, c.steps) << c.bySample << " " << c.days;
        EXPECT_EQ(session.view().start, midnight + c.startAt * 60000) << c.days;
    }
    // Back by sample from the end returns to the first record.
    PGraphSession session = sessionOf(1, 2);
    session.view().moveBySample = true;
    while (session.step(PGraphSession::Direction::Forward)) {
    }
    int back = 0;
    while (session.step(PGraphSession::Direction::Reverse))
        ++back;
    EXPECT_EQ(back, 7);
}

TEST(PGraphSession, RecordsInTheViewAndInTotal)
{
    PGraphSession session = sessionOf(3, 48);
    EXPECT_EQ(session.totalRecords(), 3 * 192);
    // A day's view holds its 96 records and the midnight that closes it.
    EXPECT_EQ(session.visible(0).size(), 97);
    EXPECT_EQ(session.recordsInView(), 3 * 97);
    EXPECT_TRUE(session.visible(3).isEmpty());
}

TEST(PGraphChoiceCheck, SixItemsPassSevenAreRefusedAndNothingIsDrawn)
{
    struct Case
    {
        int chosen;
        const char* message;
    };
    const Case cases[] = {{0, "Please select the items you want to graph."},
                          {1, ""},
                          {6, ""},
                          {7, "Maximum 6 items. Too many items selected."}};
    for (const Case& c : cases)
        EXPECT_EQ(PGraphChoiceCheck::check(c.chosen).value_or(QString()),
                  QString::fromLatin1(c.message))
            << c.chosen;
    EXPECT_NO_THROW(sessionOf(6, 1));
    EXPECT_THROW(sessionOf(7, 1), std::exception);

    const QList<PGraphChoice> list{{1, 10, {}}, {1, 11, {}}, {2, 10, {}}};
    const PGraphChoiceCheck::Counters counters = PGraphChoiceCheck::counters(list, {0, 2, 9});
    EXPECT_EQ(counters.items, 2);
    EXPECT_EQ(counters.devices, 2);
    EXPECT_EQ(counters.total, 3);
}

TEST(AutoShow, TicksStepAtTheSliderIntervalUntilTheRecordsEnd)
{
    struct Case
    {
        int speed;
        int interval;
    };
    const Case cases[] = {{0, 1500}, {5, 800}, {10, 100}, {11, 100}, {-1, 1500}};
    for (const Case& c : cases)
        EXPECT_EQ(AutoShow::interval(c.speed), c.interval) << c.speed;

    PGraphSession session = sessionOf(1, 72);
    const qint64 first = session.view().start;
    HandClock clock;
    AutoShow show(clock, [&session](bool forward) {
        return session.step(forward ? PGraphSession::Direction::Forward
                                    : PGraphSession::Direction::Reverse);
    });
    show.setSpeed(10);
    show.start();
    ASSERT_EQ(clock.intervals, QList<int>{100});
    show.setSpeed(0); // a running show takes the new speed at once
    EXPECT_EQ(clock.intervals.last(), 1500);
    show.tick();
    EXPECT_EQ(session.view().start, first + PGraphView::msPerDay);
    show.tick();
    show.tick(); // the third day was the last: the show ends by itself
    EXPECT_FALSE(show.running());
    EXPECT_EQ(clock.stops, 1);
    EXPECT_EQ(session.view().start, first + 2 * PGraphView::msPerDay);
    show.setForward(false);
    show.start();
    show.tick();
    EXPECT_EQ(session.view().start, first + PGraphView::msPerDay);
    show.stop();
    show.tick(); // a tick after the stop does nothing
    EXPECT_EQ(session.view().start, first + PGraphView::msPerDay);
}
