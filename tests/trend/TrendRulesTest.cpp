// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of the trend's commands at their edge values, without a window.
#include "graph/SeriesPyramid.h"
#include "platform/ProfileFile.h"
#include "trend/AxisValueBox.h"
#include "trend/BarShapeSeries.h"
#include "trend/IntelligentRange.h"
#include "trend/IntervalGap.h"
#include "trend/MsView.h"
#include "trend/PointStep.h"
#include "trend/TrendColors.h"
#include "trend/TrendExtents.h"
#include "trend/TrendGraphType.h"
#include "trend/TrendTime.h"
#include "trend/TrendZoom.h"

#include <QTemporaryDir>
#include <QTextStream>
#include <QTimeZone>
#include <cmath>
#include <gtest/gtest.h>

namespace lorvane {
namespace {

const double nan = std::numeric_limits<double>::quiet_NaN();

GraphSet setOf(QVector<double> times, QVector<double> values, TrendAxis axis = TrendAxis::Left)
{
    GraphSet set;
    set.times = std::move(times);
    set.values = std::move(values);
    set.axis = axis;
    set.summarise();
    return set;
}

TEST(TrendExtentsTest, EachRuleAddsATenthOfTheSpanOfItsBounds)
{
    struct Case
    {
        const char* name;
        QVector<double> values;
        ExtentsRule rule;
        double stored;
        std::optional<AxisRange> expected;
    };
    const Case cases[] = {
        {"default", {2, 12, 7}, ExtentsRule::Default, 0, AxisRange{1, 13}},
        {"equal values collapse", {5, 5, 5}, ExtentsRule::Default, 0, AxisRange{5, 5}},
        {"non-zero skips zeros", {0, 2, 12}, ExtentsRule::NonZero, 0, AxisRange{1, 13}},
        {"non-zero takes a negative", {-4, 0, 6}, ExtentsRule::NonZero, 0, AxisRange{-5, 7}},
        {"all zeros keep the stored value", {0, 0}, ExtentsRule::NonZero, -10, AxisRange{-11, 1}},
        {"stored value above the data is refused", {0, 0}, ExtentsRule::NonZero, 3, std::nullopt},
        {"intelligent of a flat set", {4, 4, 4}, ExtentsRule::Intelligent, 0, AxisRange{4, 4}},
    };
    for (const Case& c : cases) {
        const QList<GraphSet> sets{setOf(QVector<double>(c.values.size(), 0), c.values)};
        const auto got =
            TrendExtents::apply(c.rule, TrendExtents::of(sets, TrendAxis::Left), c.stored);
        ASSERT_EQ(got.has_value(), c.expected.has_value()) << c.name;
        if (got) {
            EXPECT_DOUBLE_EQ(got->min, c.expected->min) << c.name;
            EXPECT_DOUBLE_EQ(got->max, c.expected->max) << c.name;
        }
    }
}

TEST(TrendExtentsTest, EachAxisScalesOnItsOwnSetsAndNaNIsNoValue)
{
    const QList<GraphSet> sets{setOf({0, 1, 2}, {1, nan, 3}, TrendAxis::Left),
                               setOf({0, 1}, {100, 200}, TrendAxis::Right)};
    const AxisData left = TrendExtents::of(sets, TrendAxis::Left);
    const AxisData right = TrendExtents::of(sets, TrendAxis::Right);
    EXPECT_EQ(left.minimum, 1);
    EXPECT_EQ(left.maximum, 3);
    EXPECT_EQ(right.minimum, 100);
    EXPECT_TRUE(TrendExtents::of({}, TrendAxis::Left).empty());
    EXPECT_FALSE(TrendExtents::apply(ExtentsRule::Default, AxisData{}, 0));
    EXPECT_EQ(TrendExtents::timeSpan(sets), (AxisRange{0, 2}));
}

TEST(IntelligentRangeTest, LeavesOutALoneSpikeButKeepsTheTails)
{
    QVector<double> values;
    for (int i = 0; i < 10000; ++i)
        values << 230.0 + (i % 100) * 0.1; // 230 .. 239.9
    values[500] = 240.5;                   // a tail within a tenth of the span: kept
    values[600] = 5000;                    // a spike: left out
    values[700] = nan;
    const auto range = IntelligentRange::of({&values});
    ASSERT_TRUE(range);
    EXPECT_DOUBLE_EQ(range->min, 230.0);
    EXPECT_DOUBLE_EQ(range->max, 240.5);
    const QVector<double> none{nan};
    EXPECT_FALSE(IntelligentRange::of({&none}));
}

TEST(TrendZoomTest, ZoomStepsKeepTheCentreAndStopAtTheirLimits)
{
    struct Case
    {
        const char* name;
        std::optional<AxisRange> got;
        std::optional<AxisRange> expected;
    };
    const double dataX = 10000;
    const Case cases[] = {
        {"x in", TrendZoom::viewportXIn({0, 10000}), AxisRange{1000, 9000}},
        {"x in reaches one second", TrendZoom::viewportXIn({0, 1250}), AxisRange{125, 1125}},
        {"one second is not reduced", TrendZoom::viewportXIn({0, 1000}), std::nullopt},
        {"x out", TrendZoom::viewportXOut({0, 10000}, dataX), AxisRange{-1000, 11000}},
        {"x out to twice the data", TrendZoom::viewportXOut({0, 50000.0 / 3}, dataX),
         AxisRange{-5000.0 / 3, 55000.0 / 3}},
        {"x out past twice the data", TrendZoom::viewportXOut({0, 17000}, dataX), std::nullopt},
        {"y in", TrendZoom::viewportYIn({-10, 10}), AxisRange{-8, 8}},
        {"y out", TrendZoom::viewportYOut({-10, 10}, 10), AxisRange{-12, 12}},
        {"y out past 20 spans", TrendZoom::viewportYOut({0, 190}, 10), std::nullopt},
        {"y out of a flat set", TrendZoom::viewportYOut({5, 5}, 0), AxisRange{5, 5}},
        {"preview y in", TrendZoom::previewYIn({0, 100}), AxisRange{10, 90}},
        {"preview y out has no limit", TrendZoom::previewYOut({0, 1e12}), AxisRange{-1e11, 1.1e12}},
        {"shift up", TrendZoom::previewYShift({0, 100}, true), AxisRange{20, 120}},
        {"shift down", TrendZoom::previewYShift({0, 100}, false), AxisRange{-20, 80}},
    };
    for (const Case& c : cases) {
        ASSERT_EQ(c.got.has_value(), c.expected.has_value()) << c.name;
        if (c.got) {
            EXPECT_NEAR(c.got->min, c.expected->min, 1e-6) << c.name;
            EXPECT_NEAR(c.got->max, c.expected->max, 1e-6) << c.name;
        }
    }
}

TEST(AxisValueBoxTest, AcceptsNumbersStrictlyInsideABillion)
{
    const std::pair<const char*, std::optional<double>> cases[] = {
        {" 12.5 ", 12.5},       {"-999999999.9", -999999999.9}, {"1000000000", std::nullopt},
        {"-1e9", std::nullopt}, {"abc", std::nullopt},          {"", std::nullopt},
        {"nan", std::nullopt},  {"inf", std::nullopt},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(AxisValueBox::parse(QString::fromLatin1(text)), expected) << text;
}

TEST(TrendBarRuleTest, CountsThePointsOfTheViewportAcrossSets)
{
    QVector<double> times;
    for (int i = 0; i < 1000; ++i)
        times << i;
    const QVector<double> values(1000, 1.0);
    const QList<GraphSet> sets{setOf(times, values), setOf(times, values)};
    EXPECT_EQ(TrendBarRule::pointsIn(sets, {0, 999}), 2000);
    EXPECT_TRUE(TrendBarRule::allows(TrendBarRule::pointsIn(sets, {0, 999})));
    const QList<GraphSet> more = sets + QList<GraphSet>{setOf({0.5}, {1})};
    EXPECT_EQ(TrendBarRule::pointsIn(more, {0, 999}), 2001);
    EXPECT_FALSE(TrendBarRule::allows(2001));
    EXPECT_EQ(TrendBarRule::pointsIn(sets, {10.5, 12}), 4);
}

TEST(PointStepTest, StepsToTheNearestSampleOfTheChosenSetsAndStopsAtTheEnds)
{
    const QList<GraphSet> sets{setOf({10, 20, 30}, {1, 2, 3}), setOf({15, 20, 40}, {5, 6, 7})};
    struct Case
    {
        const char* name;
        std::optional<FoundPoint> got;
        int set;
        double time;
    };
    const Case cases[] = {
        {"next over all", PointStep::next(sets, -1, 10), 1, 15},
        {"tie goes to the first set", PointStep::next(sets, -1, 15), 0, 20},
        {"focus skips the other set", PointStep::next(sets, 0, 10), 0, 20},
        {"previous over all", PointStep::previous(sets, -1, 40), 0, 30},
        {"before the first", PointStep::next(sets, -1, -5), 0, 10},
        {"no next", PointStep::next(sets, -1, 40), -1, 0},
        {"no next in focus", PointStep::next(sets, 0, 30), -1, 0},
        {"no previous", PointStep::previous(sets, -1, 10), -1, 0},
    };
    for (const Case& c : cases) {
        ASSERT_EQ(c.got.has_value(), c.set >= 0) << c.name;
        if (c.got) {
            EXPECT_EQ(c.got->set, c.set) << c.name;
            EXPECT_EQ(c.got->time, c.time) << c.name;
            EXPECT_EQ(c.got->value, sets.at(c.set).values.at(c.got->index)) << c.name;
        }
    }
}

TEST(MsViewTest, TakesPointsOrADurationFromTheStartInSeconds)
{
    const QList<GraphSet> sets{setOf({1000, 1250, 1500, 3000}, {1, 2, 3, 4}),
                               setOf({1100, 5000}, {9, 8})};
    const auto byPoints = MsViewMaker::make(sets, {-1, 1200, true, 2, 0});
    ASSERT_TRUE(byPoints);
    ASSERT_EQ(byPoints->sets.size(), 2);
    EXPECT_EQ(byPoints->sets.at(0).times, (QVector<double>{0.05, 0.3}));
    EXPECT_EQ(byPoints->sets.at(0).values, (QVector<double>{2, 3}));
    EXPECT_EQ(byPoints->sets.at(1).times, (QVector<double>{3.8}));
    const auto byDuration = MsViewMaker::make(sets, {0, 1000, false, 0, 500});
    ASSERT_TRUE(byDuration);
    EXPECT_EQ(byDuration->sets.at(0).values, (QVector<double>{1, 2, 3}));
    EXPECT_EQ(byDuration->sets.at(0).maximum, 3);
    // Each refusal: no point asked for, no duration, nothing in the stretch, no such set.
    EXPECT_FALSE(MsViewMaker::make(sets, {-1, 0, true, 0, 0}));
    EXPECT_FALSE(MsViewMaker::make(sets, {-1, 0, false, 0, 0}));
    EXPECT_FALSE(MsViewMaker::make(sets, {-1, 6000, true, 5, 0}));
    EXPECT_FALSE(MsViewMaker::make(sets, {2, 0, true, 5, 0}));
}

TEST(IntervalGapTest, BreaksOnlySpacingsAboveTheGapAndNeverAtOneSecond)
{
    const QVector<double> times{0, 1000, 2000, 2000 + TrendTime::msPerDay,
                                2000 + 3 * TrendTime::msPerDay};
    const QVector<double> values{1, 2, 3, 4, 5};
    QVector<double> t, v;
    IntervalGap::apply(times, values, 1.5, t, v);
    ASSERT_EQ(t.size(), 6);
    EXPECT_TRUE(std::isnan(v.at(4)));
    EXPECT_EQ(t.at(4), 2000 + 2 * TrendTime::msPerDay);
    IntervalGap::apply(times, values, 0.5, t, v);
    EXPECT_EQ(t.size(), 7);
    IntervalGap::apply(times, values, 1000 / TrendTime::msPerDay, t, v);
    EXPECT_EQ(t.size(), 5) << "a gap of one second breaks nothing";
    EXPECT_TRUE(t.isSharedWith(times));
}

TEST(TrendColorsTest, ReadsBlueGreenRedTextsAndKeepsDefaultsForBadOnes)
{
    EXPECT_EQ(TrendColors::defaults().at(0), 0x0000FFu) << "&hFF0000& is blue";
    EXPECT_EQ(TrendColors::defaults().at(3), 0x007FFFu);
    EXPECT_EQ(TrendColors::parse(QStringLiteral("&h0000FF&")), 0xFF0000u);
    EXPECT_EQ(TrendColors::text(0xFF0000u), QStringLiteral("&h0000FF&"));
    EXPECT_FALSE(TrendColors::parse(QStringLiteral("red")));
    QTemporaryDir dir;
    ProfileFile settings(dir.filePath(QStringLiteral("LogGraphSettings.ini")));
    settings.writeString(QStringLiteral("Color Set"), QStringLiteral("Line1"),
                         QStringLiteral("&h00FFFF&"));
    settings.writeString(QStringLiteral("Color Set"), QStringLiteral("Line2"),
                         QStringLiteral("bad"));
    const QList<quint32> colours = TrendColors::read(settings);
    EXPECT_EQ(colours.at(1), 0xFFFF00u);
    EXPECT_EQ(colours.at(2), TrendColors::defaults().at(2));
    EXPECT_EQ(TrendColors::ofSet(colours, 17), colours.at(1));
}

TEST(TrendSeriesLookTest, BarsStandApartFromTheirBase)
{
    const BarShapeSeries bars(
        std::make_shared<SeriesPyramid<double>>(QVector<double>{1, 2}, QVector<double>{5, -3}), 0);
    const QList<QPointF> corners = bars.points(0, 3, 100);
    ASSERT_EQ(corners.size(), 8);
    EXPECT_EQ(corners.at(1), QPointF(1, 5));
    EXPECT_EQ(corners.at(2), QPointF(1, 0));
    EXPECT_TRUE(std::isnan(corners.at(3).y())) << "bars are not joined along the base";
    EXPECT_EQ(bars.yRange(0, 3)->max, 5);
}

TEST(TrendTimeTest, ReadsStoredTextsAndRefusesOthers)
{
    const QDateTime clock(QDate(2024, 2, 29), QTime(23, 59, 58), QTimeZone::utc());
    EXPECT_EQ(TrendTime::fromStoredText(u"2024-02-29 23:59:58"), TrendTime::of(clock));
    EXPECT_EQ(TrendTime::clock(TrendTime::of(clock)), clock);
    for (const char16_t* bad :
         {u"2023-02-29 00:00:00", u"2024-03-04 24:00:00", u"2024-3-04 00:00:00",
          u"2024-03-04T00:00:00", u"2024-03-04 00:00:00Z"})
        EXPECT_FALSE(TrendTime::fromStoredText(QStringView(bad)))
            << QString::fromUtf16(bad).toStdString();
}

} // namespace
} // namespace lorvane
