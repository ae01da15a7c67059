// SPDX-License-Identifier: GPL-3.0-or-later
#include "query/views/systemevent/SystemEventView.h"

#include "InputSimFixture.h"

using namespace lorvane;
using namespace lorvane::test;

namespace {

QStringList descriptionsAt(const GridTable& grid, const QString& stored)
{
    QStringList out;
    const QStringList descriptions = column(grid, QStringLiteral("Description"));
    for (int r = 0; r < grid.rows.size(); ++r) {
        if (grid.rowKeys.at(r).value(QStringLiteral("Date/Time")).toString() == stored)
            out << descriptions.at(r);
    }
    return out;
}

} // namespace

TEST(SystemEventView, EventsOfOneInstantFollowTheirSequenceBothWays)
{
    SimMeters sim;
    const QString meter = sim.meter(QStringLiteral("Board"));
    QueryContext up = sim.context({meter});
    const GridTable ascending = SystemEventView::run(up).grids.at(0);
    EXPECT_EQ(ascending.caption, QStringLiteral("Show System Events"));
    EXPECT_EQ(descriptionsAt(ascending, QStringLiteral("2024-03-04 08:15:00")),
              (QStringList{QStringLiteral("Level 2 access was granted"),
                           QStringLiteral("from Port 1: RS-232/485"),
                           QStringLiteral("Reset maximum values")}));
    EXPECT_EQ(descriptionsAt(ascending, QStringLiteral("2024-03-05 13:00:00")),
              (QStringList{
                  QStringLiteral("Power or Watchdog reset"), QStringLiteral("Run Time has started"),
                  QStringLiteral("Run Time is active (features were initialized & enabled)")}));
    // The test mode of the last day runs with InTestMode -1; the preset after it does not.
    const QStringList descriptions = column(ascending, QStringLiteral("Description"));
    const QStringList testMode = column(ascending, QStringLiteral("In Test Mode"));
    EXPECT_EQ(testMode.at(descriptions.indexOf(QStringLiteral("Wh Test (Q1 & Q4) for TLC"))),
              QStringLiteral("-1"));
    EXPECT_EQ(testMode.at(descriptions.indexOf(QStringLiteral("Energy Preset"))),
              QStringLiteral("0"));

    QueryContext down = sim.context({meter});
    down.descending = true;
    const GridTable descending = SystemEventView::run(down).grids.at(0);
    ASSERT_EQ(descending.rows.size(), ascending.rows.size());
    EXPECT_EQ(descriptionsAt(descending, QStringLiteral("2024-03-04 08:15:00")),
              (QStringList{QStringLiteral("Reset maximum values"),
                           QStringLiteral("from Port 1: RS-232/485"),
                           QStringLiteral("Level 2 access was granted")}));
}
