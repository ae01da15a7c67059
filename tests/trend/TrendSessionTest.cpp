// SPDX-License-Identifier: GPL-3.0-or-later
// The trend window's state and rules, driven without the window.
#include "trend/TrendSession.h"

#include "TrendSimMeter.h"
#include "platform/LoadProgress.h"
#include "trend/TrendTexts.h"
#include "trend/TrendTime.h"

#include <gtest/gtest.h>

namespace lorvane {
namespace {

using test::TrendSimMeter;

GraphSet setOf(qint32 id, QVector<double> times, QVector<double> values)
{
    GraphSet set;
    set.dataId = id;
    set.times = std::move(times);
    set.values = std::move(values);
    set.summarise();
    return set;
}

/// One set of `count` samples a second apart from t = 0, values 0 .. count - 1.
TrendSession sessionOf(int count)
{
    QVector<double> times, values;
    for (int i = 0; i < count; ++i) {
        times << i * 1000.0;
        values << i;
    }
    TrendSession session;
    TrendLoad load;
    load.sets = {setOf(7, times, values)};
    EXPECT_TRUE(session.take(load));
    return session;
}

TEST(TrendSessionTest, RefusesEmptyInputsAndRangesBeforeReading)
{
    TrendSimMeter meter(1, 60, 2);
    const QDateTime from = TrendSimMeter::at(0, 0);
    const std::pair<TrendRequest, QString> cases[] = {
        {{{}, {1}, from, from.addDays(1)}, TrendTexts::noDataInput()},
        {{{meter.entry()}, {}, from, from.addDays(1)}, TrendTexts::noDataInput()},
        {{{meter.entry()}, {1}, from, from}, TrendTexts::zeroSizedRange()},
        {{{meter.entry()}, {1}, from, from.addDays(3661)}, TrendTexts::rangeTooLarge()},
        {{{meter.entry()}, {999999}, from, from.addDays(1)}, TrendTexts::noPointsLoaded()},
        {{{meter.entry()}, meter.dataIds(), from, from.addDays(1)}, QString()},
    };
    for (const auto& [request, expected] : cases) {
        TrendSession session;
        SilentProgress progress;
        EXPECT_EQ(session.show(request, progress), expected);
        EXPECT_EQ(session.empty(), !expected.isEmpty());
    }
}

TEST(TrendSessionTest, ExtentsCommandsResetXAndFitYOfBothGraphs)
{
    TrendSession session = sessionOf(11); // values 0 .. 10 over 10 s
    EXPECT_EQ(session.view().viewport.left, (AxisRange{-1, 11}));
    EXPECT_EQ(session.view().name, TrendTexts::mainViewName());
    ASSERT_TRUE(session.run(TrendCommand::ViewZoomXIn));
    ASSERT_TRUE(session.run(TrendCommand::PreviewYShiftUp));
    session.applyExtents(ExtentsRule::NonZero);
    EXPECT_EQ(session.view().viewport.x, (AxisRange{0, 10000}));
    EXPECT_EQ(session.view().preview.x, (AxisRange{0, 10000}));
    EXPECT_DOUBLE_EQ(session.view().preview.left.min, 0.1);
    EXPECT_DOUBLE_EQ(session.view().viewport.left.max, 10.9);
}

TEST(TrendSessionTest, ZoomingInStopsAtOneSecondAndOutAtTwiceTheData)
{
    TrendSession session = sessionOf(3); // 2 s of data
    int steps = 0;
    while (session.run(TrendCommand::ViewZoomXIn))
        ++steps;
    EXPECT_EQ(steps, 3) << "2000, 1600, 1280, 1024 ms; 819 would pass one second";
    EXPECT_NEAR(session.view().viewport.x.span(), 1024, 1e-6);
    while (session.run(TrendCommand::ViewZoomXOut))
        ;
    EXPECT_LE(session.view().viewport.x.span(), 4000 * (1 + 1e-9));
    EXPECT_TRUE(session.setViewportX({500, 600}));
    EXPECT_NEAR(session.view().viewport.x.span(), 1000, 1e-9);
    EXPECT_NEAR(session.view().viewport.x.centre(), 550, 1e-9);
}

TEST(TrendSessionTest, ValueBoxesBarTypeAndAxesFollowTheirRules)
{
    TrendSession session = sessionOf(2001);
    EXPECT_FALSE(session.setAxisValue(TrendAxis::Left, true, QStringLiteral("1e9")));
    EXPECT_FALSE(session.setAxisValue(TrendAxis::Left, true, QStringLiteral("-300")))
        << "a high below the low";
    EXPECT_TRUE(session.setAxisValue(TrendAxis::Left, true, QStringLiteral("50")));
    EXPECT_EQ(session.view().viewport.left.max, 50);

    EXPECT_EQ(session.setGraphType(TrendGraphType::Bar), TrendTexts::tooManyBarPoints());
    EXPECT_EQ(session.view().type, TrendGraphType::Line);
    ASSERT_TRUE(session.setViewportX({0, 1999000}));
    EXPECT_EQ(session.setGraphType(TrendGraphType::Bar), QString()) << "2000 points";
    EXPECT_EQ(session.view().type, TrendGraphType::Bar);

    session.setAxis(0, TrendAxis::Right);
    EXPECT_EQ(session.view().viewport.right, (AxisRange{-200, 2200}));
    EXPECT_TRUE(session.axisData(TrendAxis::Left).empty());
}

TEST(TrendSessionTest, MovingASetToTheOtherAxisRefitsBothAxes)
{
    TrendSession session;
    TrendLoad load;
    load.sets = {setOf(1, {0, 1000}, {100, 200}), setOf(2, {0, 1000}, {1, 2})};
    ASSERT_TRUE(session.take(load));
    session.setAxis(0, TrendAxis::Right);
    EXPECT_EQ(session.view().viewport.right, (AxisRange{90, 210}));
    EXPECT_EQ(session.view().viewport.left, (AxisRange{0.9, 2.1}))
        << "the left axis narrows to the set that stays";
    EXPECT_EQ(session.view().preview.left, session.view().viewport.left);
}

TEST(TrendSessionTest, CaptureStepsMillisecondTabsAndClosingFollowThePanel)
{
    TrendSession session = sessionOf(5);
    session.setCursor(0);
    EXPECT_EQ(session.step(false, -1).message, TrendTexts::noPreviousPoint());
    TrendSession::Capture first = session.step(true, -1);
    ASSERT_TRUE(first.point);
    EXPECT_EQ(first.point->time, 1000);
    EXPECT_EQ(first.maximum, 4);
    session.setCursor(4000);
    EXPECT_EQ(session.step(true, 0).message, TrendTexts::noNextPoint());

    EXPECT_EQ(session.generateMsView({-1, 1000, false, 0, 0}), TrendTexts::noMsPoints());
    ASSERT_EQ(session.generateMsView({-1, 1000, false, 0, 2500}), QString());
    EXPECT_EQ(session.active(), 1);
    EXPECT_EQ(session.view().sets.first().times, (QVector<double>{0, 1, 2}));
    EXPECT_EQ(session.view().viewport.x, (AxisRange{0, 2}));
    EXPECT_FALSE(session.closeQuestion(0)) << "the main tab never closes";
    EXPECT_EQ(session.closeQuestion(1), TrendTexts::closeViewQuestion(TrendTexts::msViewName()));
    EXPECT_TRUE(session.closeView(1));
    EXPECT_EQ(session.active(), 0);
}

TEST(TrendSessionTest, IntervalGapBreaksTheDrawnSeriesAndNonZeroIsKeptAcrossLoads)
{
    TrendSession session;
    TrendLoad load;
    load.sets = {setOf(1, {0, 1000, 3 * TrendTime::msPerDay}, {2, 3, 4})};
    ASSERT_TRUE(session.take(load));
    EXPECT_EQ(session.series(0).first()->size(), 3);
    session.setIntervalGap(1);
    EXPECT_EQ(session.series(0).first()->size(), 4);
    EXPECT_EQ(session.storedNonZero(), 2);

    load.sets = {setOf(1, {0, 1000}, {0, 0})};
    ASSERT_TRUE(session.take(load));
    EXPECT_EQ(session.storedNonZero(), 2) << "all zeros keep the window's value";
    session.applyExtents(ExtentsRule::NonZero);
    EXPECT_EQ(session.view().viewport.left, (AxisRange{0, 0})) << "inverted bounds: y kept";
}

} // namespace
} // namespace lorvane
