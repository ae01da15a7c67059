// SPDX-License-Identifier: GPL-3.0-or-later
// The zoom of a chart: limits, the undo stack and gestures.
#include "graph/ZoomState.h"

#include "graph/PointHit.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

const Viewport data{{0, 100}, {-10, 10}};

ZoomState zoomOverData()
{
    ZoomState zoom;
    zoom.setBounds(data);
    zoom.setLimits({1, 0.5});
    return zoom;
}

} // namespace

TEST(ZoomState, EveryViewKeepsInsideTheDataAndAboveTheMinimumSpan)
{
    struct Case
    {
        const char* what;
        Viewport asked;
        Viewport shown;
    };
    const Case cases[] = {
        {"inside", {{20, 30}, {-1, 1}}, {{20, 30}, {-1, 1}}},
        {"larger than the data", {{-50, 500}, {-99, 99}}, data},
        {"beside the data moves back in", {{90, 120}, {5, 15}}, {{70, 100}, {0, 10}}},
        {"narrower than the limit widens about its centre",
         {{50, 50.2}, {1, 1.1}},
         {{49.6, 50.6}, {0.8, 1.3}}},
        {"narrow at the edge", {{-3, -2.9}, {9.9, 10}}, {{0, 1}, {9.5, 10}}},
        {"reversed", {{30, 20}, {1, -1}}, {{20, 30}, {-1, 1}}},
        {"not a number", {{std::nan(""), 3}, {-1, 1}}, {{0, 100}, {-1, 1}}},
    };
    for (const Case& c : cases) {
        ZoomState zoom = zoomOverData();
        zoom.push(c.asked);
        EXPECT_NEAR(zoom.view().x.min, c.shown.x.min, 1e-9) << c.what;
        EXPECT_NEAR(zoom.view().x.max, c.shown.x.max, 1e-9) << c.what;
        EXPECT_NEAR(zoom.view().y.min, c.shown.y.min, 1e-9) << c.what;
        EXPECT_NEAR(zoom.view().y.max, c.shown.y.max, 1e-9) << c.what;
    }
}

TEST(ZoomState, PushUndoResetAndOneUndoStepPerGesture)
{
    ZoomState zoom = zoomOverData();
    EXPECT_FALSE(zoom.push(data)) << "the view shown is no step";
    EXPECT_FALSE(zoom.undo());
    ASSERT_TRUE(zoom.push({{10, 60}, data.y}));
    ASSERT_TRUE(zoom.push({{20, 30}, data.y}));
    EXPECT_EQ(zoom.depth(), 2);

    // Three wheel steps and a pan are one gesture: one undo returns to before it.
    for (int step = 0; step < 3; ++step)
        EXPECT_TRUE(zoom.slide(zoom.zoomedAbout(25, 0, 0.5, true, false)));
    EXPECT_TRUE(zoom.slide(zoom.panned(1, 0)));
    EXPECT_EQ(zoom.depth(), 3);
    EXPECT_NEAR(zoom.view().x.span(), 1.25, 1e-9);
    ASSERT_TRUE(zoom.undo());
    EXPECT_EQ(zoom.view().x, (AxisRange{20, 30}));
    // A slide after an undo is a new gesture.
    EXPECT_TRUE(zoom.slide(zoom.panned(-5, 0)));
    EXPECT_EQ(zoom.depth(), 3);

    ASSERT_TRUE(zoom.reset());
    EXPECT_EQ(zoom.view(), data);
    EXPECT_EQ(zoom.depth(), 0);
    EXPECT_FALSE(zoom.zoomed());
    EXPECT_FALSE(zoom.reset());
}

TEST(ZoomState, WheelKeepsThePointUnderThePointerAndStopsAtTheLimits)
{
    ZoomState zoom = zoomOverData();
    const Viewport in = zoom.zoomedAbout(80, 5, 0.5, true, true);
    EXPECT_EQ(in.x, (AxisRange{40, 90}));
    EXPECT_EQ(in.y, (AxisRange{-2.5, 7.5}));
    EXPECT_EQ(zoom.zoomedAbout(80, 5, 0.5, true, false).y, data.y);

    zoom.push({{79, 81}, data.y});
    const Viewport deep = zoom.zoomedAbout(80.5, 0, 0.01, true, false);
    EXPECT_DOUBLE_EQ(deep.x.span(), 1.0);
    EXPECT_DOUBLE_EQ(deep.x.min, 80.5 - 1.5 / 2.0 * 1.0); // the point keeps its place
    EXPECT_EQ(zoom.zoomedAbout(80, 0, 100, true, true), data) << "zooming out stops at the data";
    // A pan stops at the edge of the data and keeps the span.
    EXPECT_EQ(zoom.panned(500, 0).x, (AxisRange{98, 100}));
}

TEST(PointHit, NearestPointInPixelsOverAllSeries)
{
    const QList<QList<QPointF>> series{{{0, 0}, {10, 5}, {20, std::nan("")}}, {{10, 6}, {11, 5}}};
    struct Case
    {
        QPointF at;
        double xPixels;
        double yPixels;
        int series;
        int index;
    };
    // Near in values is not near on the screen: the scales decide.
    const Case cases[] = {
        {{10.2, 5}, 10, 10, 0, 1},  {{10.6, 5}, 10, 10, 1, 1}, {{10, 5.6}, 10, 10, 1, 0},
        {{10.7, 5.6}, 1, 10, 1, 0}, {{20, 0}, 10, 10, -1, -1}, {{10.5, 5}, 10, 0, 0, 1},
    };
    for (const Case& c : cases) {
        const auto hit = PointHit::nearest(series, c.at, c.xPixels, c.yPixels, 8);
        EXPECT_EQ(hit ? hit->series : -1, c.series) << c.at.x() << "," << c.at.y();
        EXPECT_EQ(hit ? hit->index : -1, c.index) << c.at.x() << "," << c.at.y();
    }
}
