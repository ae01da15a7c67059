// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers of the circular and XY charts: angles, radii, marks, scale texts and layout.
#include "powergraph/CircularChart.h"
#include "powergraph/PGraphScale.h"
#include "powergraph/PGraphTimeText.h"
#include "powergraph/PGraphView.h"
#include "powergraph/XYLayout.h"

#include <QDateTime>
#include <QTimeZone>
#include <cmath>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

qint64 at(const char* text)
{
    QDateTime t = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
    t.setTimeZone(QTimeZone::utc());
    return t.toMSecsSinceEpoch();
}

PGraphView view(double days, const char* start = "2024-03-04T00:00:00")
{
    PGraphView v;
    v.numDaysView = days;
    v.start = at(start);
    return v;
}

} // namespace

TEST(CircularChart, RecordsGoClockwiseFromTheTopAndOneViewLaterLandsOnTheStart)
{
    const QPointF centre(200, 200);
    struct Case
    {
        double days;
        const char* time;
        QPointF expected; // unit offset from the centre, y down
    };
    const Case cases[] = {
        {1, "2024-03-04T00:00:00", {0, -1}},   // start: top
        {1, "2024-03-04T06:00:00", {1, 0}},    // a quarter: right
        {1, "2024-03-04T12:00:00", {0, 1}},    // half: bottom
        {1, "2024-03-04T18:00:00", {-1, 0}},   // three quarters: left
        {1, "2024-03-05T00:00:00", {0, -1}},   // exactly one view later: the start angle
        {7, "2024-03-11T00:00:00", {0, -1}},   // a week's view, a week later
        {7, "2024-03-05T18:00:00", {1, 0}},    // a quarter of a week
        {0.5, "2024-03-04T12:00:00", {0, -1}}, // half a day's view
    };
    for (const Case& c : cases) {
        PGraphView v = view(c.days);
        v.minY = 0;
        v.maxY = 100;
        const std::optional<QPointF> p = CircularChart::recordPoint(v, at(c.time), 100, centre, 50);
        ASSERT_TRUE(p) << c.time;
        EXPECT_NEAR(p->x(), centre.x() + 50 * c.expected.x(), 1e-3) << c.days << " " << c.time;
        EXPECT_NEAR(p->y(), centre.y() + 50 * c.expected.y(), 1e-3) << c.days << " " << c.time;
    }
    // The marks use the same turn: the mark at 90 degrees stands at the right.
    const QPointF mark = CircularChart::offset(CircularChart::tickAngle(90), 1);
    EXPECT_NEAR(mark.x(), 1, 1e-6);
    EXPECT_NEAR(mark.y(), 0, 1e-6);
}

TEST(CircularChart, RadiusIsTheShareOfTheScaleClippedToTheDial)
{
    struct Case
    {
        double value, minY, maxY, share;
    };
    const Case cases[] = {
        {65, 0, 130, 0.5}, {130, 0, 130, 1},  {500, 0, 130, 1}, {-5, 0, 130, 0},
        {0, 0, 130, 0},    {15, 10, 20, 0.5}, {5, 10, 10, -1}, // no scale: nothing drawn
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(PGraphScale::share(c.value, c.minY, c.maxY), c.share) << c.value;
    PGraphView flat = view(1);
    flat.minY = flat.maxY = 10;
    EXPECT_FALSE(CircularChart::recordPoint(flat, flat.start, 10, {0, 0}, 100));
    EXPECT_TRUE(PGraphScale::steps(10, 10).isEmpty());
}

TEST(CircularChart, MarksStepByTheDialSizeAndShowClockOrDate)
{
    // 2375 twips is 158.3 pixels: at or below it every 90 degrees.
    struct Case
    {
        double radiusPixels;
        double step;
        int count;
    };
    const Case cases[] = {
        {100, 90, 4}, {158, 90, 4}, {200, 60, 6}, {400, 30, 12}, {320, 37.5, 10},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(CircularChart::tickStep(c.radiusPixels), c.step, 1e-9) << c.radiusPixels;
        EXPECT_EQ(CircularChart::tickAngles(c.radiusPixels).size(), c.count) << c.radiusPixels;
    }
    EXPECT_EQ(CircularChart::tickLabel(view(0.5, "2024-03-04T06:00:00"), 90), "09:00:00");
    EXPECT_EQ(CircularChart::tickLabel(view(1), 90), "03/04");
    EXPECT_EQ(CircularChart::tickLabel(view(7), 180), "03/07");
}

TEST(PGraphScale, ThousandsAndMillionsAreScaledAndMarked)
{
    struct Case
    {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0, "0.000"},       {999.9994, "999.999"}, {1000, "1.000k"},    {1234.5678, "1.235k"},
        {-2500, "-2.500k"}, {999999, "999.999k"},  {1000000, "1.000M"}, {7250000, "7.250M"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(PGraphScale::valueText(c.value), QString::fromLatin1(c.text)) << c.value;
        EXPECT_EQ(PGraphScale::markText(c.value), QLatin1Char(' ') + QString::fromLatin1(c.text));
    }
    const QList<double> steps = PGraphScale::steps(0, 130);
    ASSERT_GE(steps.size(), 3);
    EXPECT_EQ(steps.first(), 0);
    EXPECT_EQ(steps.last(), 130);
    EXPECT_TRUE(std::is_sorted(steps.cbegin(), steps.cend()));
}

TEST(PGraphTimeText, HeaderAndEntryAreMeterTimeInFixedForms)
{
    EXPECT_EQ(PGraphTimeText::period(view(7)), "Mar 04, 2024 to Mar 11, 2024");
    EXPECT_EQ(PGraphTimeText::entry(at("2024-03-04T13:05:09")), "03/04/2024 13:05:09");
    struct Case
    {
        const char* text;
        qint64 expected;
    };
    const Case cases[] = {{"03/04/2024 13:05:09", at("2024-03-04T13:05:09")},
                          {" 3/4/2024 1:05:09 ", at("2024-03-04T01:05:09")},
                          {"2024-03-04", at("2024-03-04T00:00:00")}};
    for (const Case& c : cases)
        EXPECT_EQ(PGraphTimeText::parseEntry(QString::fromLatin1(c.text)), c.expected) << c.text;
    EXPECT_FALSE(PGraphTimeText::parseEntry(QStringLiteral("13/45/2024")));
}

TEST(XYLayout, TimeRunsOverTheViewAndValuesOverTheScale)
{
    const XYLayout layout(QRectF(0, 0, 800, 600), 3);
    const QRectF plot = layout.plot();
    EXPECT_NEAR(plot.left(), 1450 / 15.0, 1e-9);
    EXPECT_NEAR(plot.right(), 800 - 750 / 15.0, 1e-9);
    EXPECT_GT(layout.listTop(), plot.bottom());
    EXPECT_LE(layout.listTop() + 3 * XYLayout::lineStep, 600 + 1e-9);
    PGraphView v = view(1);
    EXPECT_DOUBLE_EQ(layout.x(v, v.start), plot.left());
    EXPECT_DOUBLE_EQ(layout.x(v, at("2024-03-04T12:00:00")), plot.center().x());
    EXPECT_DOUBLE_EQ(layout.x(v, v.end()), plot.right());
    EXPECT_NEAR(layout.y(v, 130), plot.top(), 1e-9);
    EXPECT_NEAR(layout.y(v, 65), plot.center().y(), 1e-9);
    EXPECT_NEAR(layout.y(v, 1e9), plot.top(), 1e-9);
}
