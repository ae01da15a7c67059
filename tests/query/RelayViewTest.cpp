// SPDX-License-Identifier: GPL-3.0-or-later
// The relay view on simulated meters: trips with their settings, the orphan record of a module
// without settings dropped by the join, two meters told apart by their device index.
#include "query/views/relay/RelayView.h"

#include "InputSimFixture.h"
#include "platform/SqlIdentifier.h"
#include "query/views/setup/SetupRecordViews.h"

using namespace lorvane;
using namespace lorvane::test;

TEST(RelayView, TripsJoinTheirSettingsAndTheOrphanRowIsDropped)
{
    SimMeters sim;
    QueryContext c =
        sim.context({sim.meter(QStringLiteral("Board")), sim.meter(QStringLiteral("Plant"), 5)});
    const ViewResult view = RelayView::run(c);
    const GridTable& relays = view.grids.at(0);
    EXPECT_EQ(relays.caption, QStringLiteral("Show Relays"));
    EXPECT_EQ(relays.columns.size(), 21);
    SqliteDatabase& db = c.scratch->database();
    const qint64 copied =
        db.scalar(QStringLiteral("SELECT count(*) FROM ") +
                  SqlIdentifier::quote(view.numbers.sliceTable(QStringLiteral("RelayLogA_"))))
            .toLongLong();
    // Each meter wrote one record of module 1, which has no settings row.
    EXPECT_EQ(copied, relays.rows.size() + 2);
    ASSERT_FALSE(relays.rows.isEmpty());
    QSet<QString> devices;
    for (int r = 0; r < relays.rows.size(); ++r) {
        EXPECT_EQ(column(relays, QStringLiteral("Module/Card Name")).at(r),
                  QStringLiteral("Relay Card 1"));
        const QString relay = column(relays, QStringLiteral("Relay Name")).at(r);
        EXPECT_TRUE(relay == QStringLiteral("Load Shed") ||
                    relay == QStringLiteral("Undervoltage Alarm") ||
                    relay == QStringLiteral("Feeder Lockout"));
        devices.insert(column(relays, QStringLiteral("Device Name")).at(r));
    }
    EXPECT_EQ(devices, (QSet<QString>{QStringLiteral("Board"), QStringLiteral("Plant")}));

    // The setting of relay 0 of meter 1.
    const GridTable setting = SetupRecordViews::relaySetting(db, view.numbers, 1, 1, 0, 0, 3);
    EXPECT_EQ(setting.columns, (QStringList{QStringLiteral("Item"), QStringLiteral("Setting")}));
    EXPECT_EQ(setting.rows.at(1).at(1), QStringLiteral("Load Shed"));
    EXPECT_EQ(setting.rows.at(7).at(1), QStringLiteral("2"));
    EXPECT_EQ(setting.rows.at(11).at(1), QStringLiteral("AND"));
    EXPECT_EQ(setting.rows.at(14).at(1), QStringLiteral("Limit 7 Ia Above 320 A"));
    // A device type with a gate table adds the gates A to G.
    const GridTable gates = SetupRecordViews::relaySetting(db, view.numbers, 1, 1, 0, 2, 0);
    ASSERT_EQ(gates.rows.size(), setting.rows.size() + 7);
    // Fault: the gate rows named the whole LogicComb byte as a type, so an inverted input
    // turned an AND into an OR; the type is bits 2 to 4.
    EXPECT_EQ(gates.rows.at(11).at(1), QStringLiteral("XOR"));
    EXPECT_EQ(gates.rows.mid(setting.rows.size()).first().at(1),
              QStringLiteral("XOR, first input is inverted"));
    EXPECT_EQ(gates.rows.last().at(1), QStringLiteral("OR"));
}
