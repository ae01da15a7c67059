// SPDX-License-Identifier: GPL-3.0-or-later
// A value axis that follows round steps: the waveform strips showed 22.2, 44.4 ms ticks (a
// sixth of the capture) and the harmonic bars 27.5, 55 %, where an engineer reads 20, 40 ms
// and 20, 40 %.
#include "graph/ui/RoundValueTicks.h"

#include <QValueAxis>
#include <gtest/gtest.h>

using namespace lorvane;

TEST(RoundValueTicks, AxesStepAtRoundValuesAndFollowEveryRangeChange)
{
    const struct
    {
        double min, max;
        int maxTicks;
        double interval;
        const char* format;
    } cases[] = {
        {0, 133.3, 8, 20, "%.0f"}, // a 512-sample capture of eight cycles
        {0, 110, 10, 20, "%.0f"},  // harmonic percentages
        {-209.6, 209.6, 6, 100, "%.0f"}, {-1, 1, 6, 0.5, "%.1f"}, // an empty strip
        {12.5, 13.1, 8, 0.1, "%.1f"}, // zoomed into one cycle's crossing
    };
    QValueAxis axis;
    RoundValueTicks::follow(&axis, 8);
    for (const auto& c : cases) {
        QValueAxis shown;
        shown.setRange(c.min, c.max);
        RoundValueTicks::follow(&shown, c.maxTicks);
        EXPECT_EQ(shown.tickType(), QValueAxis::TicksDynamic);
        EXPECT_DOUBLE_EQ(shown.tickInterval(), c.interval) << c.min << " " << c.max;
        EXPECT_EQ(shown.labelFormat().toStdString(), c.format);
        // The same axis zoomed later takes the new range's step.
        axis.setRange(c.min, c.max);
        if (c.maxTicks == 8) {
            EXPECT_DOUBLE_EQ(axis.tickInterval(), c.interval);
        }
    }
}
