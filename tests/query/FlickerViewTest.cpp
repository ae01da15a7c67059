// SPDX-License-Identifier: GPL-3.0-or-later
#include "query/views/flicker/FlickerView.h"

#include "InputSimFixture.h"

using namespace lorvane;
using namespace lorvane::test;

TEST(FlickerView, FourBlocksADayAndEveryMaximumAtLeastItsMinimum)
{
    SimMeters sim;
    QueryContext c = sim.context({sim.meter(QStringLiteral("Board"))});
    c.descending = true;
    const GridTable grid = FlickerView::run(c).grids.at(1);
    EXPECT_EQ(grid.caption, QStringLiteral("Show Flicker Max/Min"));
    EXPECT_EQ(grid.columns.size(), 8 + 12 * 4);
    ASSERT_EQ(grid.rows.size(), 8);
    // Newest block first in the descending view.
    EXPECT_EQ(grid.rowKeys.first().value(QStringLiteral("FS_DT")).toString(),
              QStringLiteral("2024-03-05 18:00:00"));
    for (const char* term : {"Pst", "Plt"}) {
        for (const char* phase : {"Va", "Vb", "Vc"}) {
            const QString suffix =
                QStringLiteral(" %1 %2").arg(QLatin1String(term), QLatin1String(phase));
            const QStringList max = column(grid, QStringLiteral("Max") + suffix);
            const QStringList min = column(grid, QStringLiteral("Min") + suffix);
            for (int r = 0; r < grid.rows.size(); ++r) {
                if (!max.at(r).isEmpty() && !min.at(r).isEmpty()) {
                    EXPECT_GE(max.at(r).toDouble(), min.at(r).toDouble()) << r;
                }
            }
        }
    }
}
