// SPDX-License-Identifier: GPL-3.0-or-later
// The PQ graph session over simulated meters: the sequence of events read from the PQ view's
// table for one and two meters, the channels that do not count, the counts and the
// classification against the envelope.
#include "pqgraph/PqGraphSession.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "query/WaveformSimMeters.h"
#include "query/views/pq/PqView.h"

#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

struct Loaded
{
    PqGraphSession session;
    qint64 voltageRows = 0; ///< rows of a voltage channel with a duration above 0
};

/// Runs the PQ view over `files`, adds `extra` rows (ChannelID, Duration ms, PQ%) and loads
/// the session from the view's table.
void load(Loaded& out, WaveformSimMeters& sim, const QList<LogFileEntry>& files,
          const QList<std::array<double, 3>>& extra)
{
    QueryContext context = sim.context(files, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    const ViewResult result = PqView::run(context);
    SqliteDatabase& db = context.scratch->database();
    const QString table = SqlIdentifier::quote(result.numbers.sliceTable(QStringLiteral("PQLog_")));
    for (const auto& row : extra) {
        db.execute(QStringLiteral("INSERT INTO %1 ([StartDate/Time], [Startms], [ChannelID], "
                                  "[Duration], [PQ%], [DeviceIndex], [RecCounter]) VALUES "
                                  "('2024-03-04 00:00:01', 0, ?, ?, ?, 0, 90000)")
                       .arg(table),
                   {row[0], row[1], row[2]});
    }
    out.voltageRows = db.scalar(QStringLiteral("SELECT count(*) FROM %1 WHERE [Duration] > 0 AND "
                                               "[ChannelID] IN (0, 1, 2, 9, 10, 11)")
                                    .arg(table))
                          .toLongLong();
    out.session.load(db, result.numbers, nullptr);
}

TEST(PqGraphSession, ReadsVoltageEventsInOrderAndCountsEachOnce)
{
    WaveformSimMeters sim;
    struct Case
    {
        const char* name;
        QList<LogFileEntry> files;
        int meters;
    };
    const Case cases[] = {
        {"one meter", {WaveformSimMeters::standard()}, 1},
        {"two meters", {WaveformSimMeters::standard(), WaveformSimMeters::talmo()}, 2}};
    for (const Case& c : cases) {
        // Vaux (3), a current (5), a zero duration and a Vab swell of 2 s.
        Loaded loaded;
        load(loaded, sim, c.files, {{3, 100, 50}, {5, 100, 150}, {0, 0, 50}, {9, 2000, 130}});
        const PqGraphSession& s = loaded.session;
        EXPECT_EQ(s.deviceNames().size(), c.meters) << c.name;
        EXPECT_GT(loaded.voltageRows, 2) << c.name;
        EXPECT_EQ(PqEvents::count(s.events()), loaded.voltageRows) << c.name;
        ASSERT_EQ(s.events()[3].size(), 1) << c.name;
        EXPECT_DOUBLE_EQ(s.events()[3].first().durationSeconds, 2.0) << c.name;
        for (const QList<PqEvent>& channel : s.events()) {
            for (qsizetype i = 1; i < channel.size(); ++i) {
                const PqEvent& a = channel[i - 1];
                const PqEvent& b = channel[i];
                EXPECT_TRUE(a.start < b.start || (a.start == b.start && a.startMs <= b.startMs))
                    << c.name;
            }
        }
        EXPECT_EQ(s.sums().back().cumulative, loaded.voltageRows) << c.name;
        // The Vab swell is above the CBEMA curve and named so in its read-out.
        EXPECT_EQ(s.violations()[3].above, 1) << c.name;
        const PqEvent& swell = s.events()[3].first();
        EXPECT_TRUE(s.eventText(3, swell).contains(QStringLiteral("above the upper line")))
            << s.eventText(3, swell).toStdString();
        EXPECT_TRUE(s.summaryText().contains(QStringLiteral("Vab 1 (1 above, 0 below)")))
            << s.summaryText().toStdString();
        EXPECT_TRUE(s.deviceListText().startsWith(QStringLiteral("Devices: Main Switchboard")))
            << c.name;
    }
}

TEST(PqGraphSession, NoEventsGiveOnePlaceholderPointPerChannelAndNoPercent)
{
    PqGraphSession session;
    session.setEvents({}, {QStringLiteral("Meter")});
    for (int c = 0; c < PqEvents::channelCount; ++c)
        EXPECT_EQ(session.graphPoints(c), QList<QPointF>{QPointF(0, 0.0000001)});
    EXPECT_FALSE(session.sums().front().cumulativePercent.has_value());
    EXPECT_EQ(session.summaryText(), QStringLiteral("No events."));

    PqChannelEvents events;
    events[1] = {PqEvent{0, {}, 0, 0.05, 0, 1}};
    session.setEvents(events, {});
    // A magnitude of 0 reaches the graph nudged.
    EXPECT_EQ(session.graphPoints(1), QList<QPointF>{QPointF(0.05, 0.0000001)});
    EXPECT_EQ(session.violations()[1].below, 1);
}

} // namespace
