// SPDX-License-Identifier: GPL-3.0-or-later
// Where an event lies against the built-in CBEMA curve and against a file's lines.
#include "pqgraph/PqEnvelope.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

struct PlacementCase
{
    const char* name;
    double seconds;
    double percent;
    EnvelopePlacement expected;
};

TEST(PqEnvelope, CbemaPlacesEventsOnTheLinesInside)
{
    const PqEnvelope cbema = PqEnvelope::cbema();
    ASSERT_EQ(cbema.polylines.size(), 2);
    EXPECT_EQ(cbema.polylines[0].points.size() + cbema.polylines[1].points.size(), 14);
    using P = EnvelopePlacement;
    const PlacementCase cases[] = {
        {"0.02 s lies on the lower line's step", 0.02, 10, P::Inside},
        {"0.02 s at 0 percent", 0.02, 0, P::Inside},
        {"a deep sag shorter than 0.02 s", 0.01, 5, P::Inside},
        {"a deep sag just longer than 0.02 s", 0.021, 5, P::Below},
        {"70 percent from 0.02 to 0.5 s", 0.1, 70, P::Inside},
        {"69 percent at 0.1 s", 0.1, 69, P::Below},
        {"0.5 s step: 70 is on it", 0.5, 70, P::Inside},
        {"75 percent after 0.5 s", 1, 75, P::Below},
        {"85 percent after 10 s", 20, 85, P::Below},
        {"nominal", 20, 100, P::Inside},
        {"120 percent at 0.1 s is on the line", 0.1, 120, P::Inside},
        {"121 percent at 0.1 s", 0.1, 121, P::Above},
        {"115 percent after 0.5 s", 1, 115, P::Above},
        {"0.003 s step: 140 is on it", 0.003, 140, P::Inside},
        {"200 percent at 1 ms", 0.001, 200, P::Inside},
        {"201 percent at 1 ms", 0.001, 201, P::Above},
        // Straight on the log axis: half way from 0.1666 ms to 1 ms in log is 350 %.
        {"under the slope", 0.000408, 340, P::Inside},
        {"over the slope", 0.000408, 360, P::Above},
        {"before the curve starts", 0.0001, 900, P::Inside},
        {"beyond 100 s", 200, 50, P::Inside},
    };
    for (const PlacementCase& c : cases)
        EXPECT_EQ(cbema.placement(c.seconds, c.percent), c.expected) << c.name;
}

TEST(PqEnvelope, LowerLinesBoundFromBelowOnly)
{
    // A ride-through line alone (as a sag standard gives): nothing is above it.
    PqEnvelope envelope;
    envelope.builtIn = false;
    envelope.polylines.append({QStringLiteral("sag"),
                               4,
                               38,
                               {{0.05, 50}, {0.2, 50}, {0.2, 70}, {0.5, 70}, {0.5, 80}, {10, 80}}});
    EXPECT_EQ(envelope.placement(0.1, 40), EnvelopePlacement::Below);
    EXPECT_EQ(envelope.placement(0.1, 400), EnvelopePlacement::Inside);
    EXPECT_EQ(envelope.placement(1, 79.9), EnvelopePlacement::Below);
    EXPECT_EQ(envelope.placement(0.01, 0), EnvelopePlacement::Inside);
}

} // namespace
