// SPDX-License-Identifier: GPL-3.0-or-later
// Two strips of a day of meter samples over one wall-clock axis: zoom, pan, undo, cursor,
// hover and the menu hook, as the user does them with the mouse.
#include "graph/ui/ChartCanvas.h"

#include "graph/DataBounds.h"
#include "graph/GraphRegistry.h"
#include "graph/SeriesPyramid.h"
#include "graph/ui/GraphWindows.h"
#include "graph/ui/StripStack.h"
#include "graph/ui/TickLabels.h"
#include "support/ui/Screenshot.h"

#include <QApplication>
#include <QCategoryAxis>
#include <QDateTime>
#include <QLineSeries>
#include <QMenu>
#include <QScatterSeries>
#include <QTimer>
#include <QtTest/QTest>
#include <cmath>
#include <ctime>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

using namespace lorvane;

namespace {

constexpr double msPerDay = 86400000;
/// One sample every 100 ms for a day.
constexpr int sampleCount = 864000;

double dayStart()
{
    return double(QDateTime(QDate(2026, 3, 29), QTime(0, 0), Qt::UTC).toMSecsSinceEpoch());
}

/// Voltage with a daily swing, a dip at 14:00 and a spike at 09:30; current follows the load.
std::pair<std::shared_ptr<const PlotSeries>, std::shared_ptr<const PlotSeries>> daySeries()
{
    QVector<double> x(sampleCount);
    QVector<double> volts(sampleCount);
    QVector<double> amps(sampleCount);
    for (int i = 0; i < sampleCount; ++i) {
        const double hour = i / 36000.0;
        x[i] = dayStart() + i * 100.0;
        volts[i] = 230 + 4 * std::sin(hour / 24 * 2 * M_PI) + 0.8 * std::sin(i * 0.37);
        amps[i] = 40 + 25 * std::sin((hour - 6) / 24 * 2 * M_PI) + 3 * std::sin(i * 1.3);
    }
    for (int i = 14 * 36000; i < 14 * 36000 + 50; ++i)
        volts[i] = 160;
    volts[int(9.5 * 36000)] = 290;
    return {std::make_shared<SeriesPyramid<double>>(x, volts),
            std::make_shared<SeriesPyramid<double>>(x, amps)};
}

ChartCanvas* strip(StripStack& stack, const char* name, const char* unit,
                   std::shared_ptr<const PlotSeries> data, const QColor& color)
{
    ChartCanvas* canvas = stack.addStrip();
    canvas->setWallClockX(true);
    canvas->setTitles({}, QStringLiteral("Meter time"), QString::fromLatin1(unit));
    auto* line = new QLineSeries;
    line->setName(QString::fromLatin1(name));
    line->setPen(QPen(color, 1.2));
    canvas->addSeries(line, std::move(data));
    canvas->setLimits({1000, 0});
    return canvas;
}

QPoint plotPoint(ChartCanvas* canvas, double fx, double fy)
{
    const QRectF plot = canvas->chart()->plotArea();
    return canvas->mapFromScene(canvas->chart()->mapToScene(
        QPointF(plot.left() + fx * plot.width(), plot.top() + fy * plot.height())));
}

class ChartCanvasTest : public testing::Test
{
protected:
    void SetUp() override
    {
        // Meter time is no zone's time: on a PC in a zone that moves its clocks on this very
        // day, the labels and read-outs must still show the meter's clock.
        qputenv("TZ", "Europe/Berlin");
        tzset();
        const auto [volts, amps] = daySeries();
        top = strip(stack, "Van", "Volts", volts, QColor(200, 30, 30));
        bottom = strip(stack, "Ia", "Amps", amps, QColor(30, 30, 200));
        stack.fitToData();
        stack.resize(1000, 640);
        stack.show();
        // One time stands at one pixel column in both strips, whatever their y labels need
        // ("300" above "60" first put the plots 7 pixels apart).
        auto aligned = [this] {
            const QRectF a = top->chart()->plotArea();
            const QRectF b = bottom->chart()->plotArea();
            return std::abs(a.left() - b.left()) < 1 && std::abs(a.right() - b.right()) < 1;
        };
        EXPECT_TRUE(QTest::qWaitFor(aligned, 2000));
        top->setFocus();
    }

    void drag(ChartCanvas* canvas, double from, double to)
    {
        QTest::mousePress(canvas->viewport(), Qt::LeftButton, {}, plotPoint(canvas, from, 0.5));
        QTest::mouseMove(canvas->viewport(), plotPoint(canvas, (from + to) / 2, 0.5));
        QTest::mouseRelease(canvas->viewport(), Qt::LeftButton, {}, plotPoint(canvas, to, 0.5));
    }

    /// `notches` wheel notches towards the middle of the plot.
    static void wheel(ChartCanvas* canvas, int notches)
    {
        const QPoint middle = plotPoint(canvas, 0.5, 0.5);
        for (int notch = 0; notch < notches; ++notch) {
            QWheelEvent event(middle, canvas->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(canvas->viewport(), &event);
        }
    }

    StripStack stack;
    ChartCanvas* top = nullptr;
    ChartCanvas* bottom = nullptr;
};

} // namespace

TEST_F(ChartCanvasTest, StripsZoomTogetherAndDrawAFewPointsAColumn)
{
    ASSERT_TRUE(test::saveScreenshot(&stack, QStringLiteral("graph-kit-strips-day")));
    const AxisRange day = top->zoom().view().x;
    EXPECT_DOUBLE_EQ(day.span(), (sampleCount - 1) * 100.0);
    for (ChartCanvas* canvas : {top, bottom}) {
        const int columns = int(canvas->chart()->plotArea().width());
        EXPECT_LE(canvas->pointsShown(), 4 * columns + 8);
        EXPECT_GE(canvas->pointsShown(), columns);
    }
    // The spike and the dip of the voltage survive the thinning of 864 000 samples.
    EXPECT_EQ(top->zoom().bounds().y, (AxisRange{160 - 13, 290 + 13}));

    drag(top, 0.25, 0.5);
    EXPECT_NEAR(top->zoom().view().x.span(), day.span() / 4, day.span() / 100);
    EXPECT_EQ(bottom->zoom().view().x, top->zoom().view().x);
    EXPECT_EQ(bottom->zoom().view().y, bottom->zoom().bounds().y) << "each strip keeps its y";

    // Wheel notches in the bottom strip form one gesture, followed by the top strip.
    wheel(bottom, 3);
    EXPECT_NEAR(bottom->zoom().view().x.span(), day.span() / 4 * 0.512, day.span() / 1000);
    EXPECT_EQ(top->zoom().view().x, bottom->zoom().view().x);
    EXPECT_EQ(top->zoom().depth(), 2);

    QTest::keyClick(top, Qt::Key_Backspace);
    EXPECT_NEAR(bottom->zoom().view().x.span(), day.span() / 4, day.span() / 100);
    QTest::keyClick(top, Qt::Key_Home);
    EXPECT_EQ(bottom->zoom().view().x, day);
    EXPECT_EQ(bottom->zoom().depth(), 0);

    // Down to the limit of one second: 10 samples, drawn whole.
    wheel(top, 80);
    EXPECT_DOUBLE_EQ(top->zoom().view().x.span(), 1000);
    EXPECT_EQ(top->pointsShown(), 12);
}

TEST_F(ChartCanvasTest, CursorHoverAndMenuShowTheValuesOfTheSamples)
{
    drag(top, 0.5, 0.6); // from 12:00 to about 14:24: the dip at 14:00 is in view
    QTest::mouseClick(top->viewport(), Qt::LeftButton, {}, plotPoint(top, 0.5, 0.3));
    ASSERT_TRUE(top->cursorX().has_value());
    EXPECT_EQ(bottom->cursorX(), top->cursorX());
    const QStringList readout = top->cursorReadout();
    ASSERT_EQ(readout.size(), 1);
    EXPECT_TRUE(readout.first().startsWith(QStringLiteral("Van: 2026-03-29 1")))
        << readout.first().toStdString();

    // The pointer over a drawn point of the dip shows that sample's time and value.
    const double dip = dayStart() + 14 * 3600000.0;
    const QPoint atDip = top->positionOf({dip, 160}).toPoint();
    QTest::mouseMove(top->viewport(), atDip);
    EXPECT_TRUE(top->hoverText().startsWith(QStringLiteral("Van: 2026-03-29 14:00:0")))
        << top->hoverText().toStdString();
    EXPECT_TRUE(top->hoverText().endsWith(QStringLiteral(", 160")))
        << top->hoverText().toStdString();
    // A mark changes the picture at its time only (line, and its text to the right); one
    // outside the view is left out.
    const QImage before = top->grab().toImage();
    top->setMarks({{dip - 600000.0, QStringLiteral("Mark 1"), QColor(0, 150, 0)},
                   {dayStart() + 3600000.0, QStringLiteral("Mark 2"), QColor(0, 150, 0)}});
    const QImage after = top->grab().toImage();
    ASSERT_TRUE(test::saveScreenshot(&stack, QStringLiteral("graph-kit-strips")));
    const int markColumn = int(top->positionOf({dip - 600000.0, 0}).x());
    int onLine = 0;
    int elsewhere = 0;
    for (int x = 0; x < after.width(); ++x) {
        for (int y = 0; y < after.height(); ++y) {
            if (after.pixel(x, y) == before.pixel(x, y))
                continue;
            onLine += std::abs(x - markColumn) <= 1;
            elsewhere += x < markColumn - 1 || x > markColumn + 80;
        }
    }
    EXPECT_GT(onLine, 100);
    EXPECT_EQ(elsewhere, 0);

    QTest::mouseMove(top->viewport(), plotPoint(top, 0.2, 0.98));
    EXPECT_TRUE(top->hoverText().isEmpty());

    // The window's menu hook gets the value under a right click.
    QPointF asked;
    top->setContextMenuHook([&asked](QMenu* menu, const QPointF& value) {
        asked = value;
        menu->addAction(QStringLiteral("Set Mark 1"));
    });
    QTimer::singleShot(0, [] {
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    });
    const QPoint click = plotPoint(top, 0.75, 0.5);
    QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, click,
                                top->viewport()->mapToGlobal(click));
    QApplication::sendEvent(top->viewport(), &menuEvent);
    EXPECT_NEAR(asked.x(), top->valueAt(click).x(), 1);
}

TEST(ChartCanvas, LogarithmicXTicksAtDecadesAndReadsValuesBack)
{
    ChartCanvas canvas;
    canvas.setLogX(true);
    canvas.setXTickText([](double value) { return QStringLiteral("t%1").arg(value); });
    auto* dots = new QScatterSeries;
    dots->setName(QStringLiteral("dots"));
    // A point at 0 has no place on a logarithmic axis: it is left out, the others drawn.
    canvas.addSeries(dots, std::make_shared<SeriesPyramid<double>>(
                               QVector<double>{0, 1e-5, 1e-2, 10}, QVector<double>{5, 10, 20, 30}));
    canvas.setBounds({{1e-6, 100}, {0, 40}});
    canvas.resize(1200, 500);
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    EXPECT_EQ(canvas.pointsShown(), 3);
    auto* x = qobject_cast<QCategoryAxis*>(canvas.chart()->axes(Qt::Horizontal).first());
    ASSERT_NE(x, nullptr);
    EXPECT_EQ(x->categoriesLabels(), (QStringList{"t1e-06", "t1e-05", "t0.0001", "t0.001", "t0.01",
                                                  "t0.1", "t1", "t10", "t100"}));
    // Decades are equally wide, and the pointer over a point reads its value, not its decade.
    const double decade = canvas.positionOf({-1, 0}).x() - canvas.positionOf({-2, 0}).x();
    EXPECT_NEAR(canvas.positionOf({1, 0}).x() - canvas.positionOf({0, 0}).x(), decade, 1);
    QTest::mouseMove(canvas.viewport(), canvas.positionOf({-2, 20}).toPoint());
    EXPECT_EQ(canvas.hoverText(), QStringLiteral("dots: 0.01, 20"));
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, {}, canvas.positionOf({1, 20}).toPoint());
    ASSERT_TRUE(canvas.cursorX().has_value());
    EXPECT_NEAR(*canvas.cursorX(), 10, 0.5);
}

TEST(ChartCanvasRightAxis, BothAxesZoomInTheirOwnScaleAndReadOutTheirOwnValues)
{
    const auto [volts, amps] = daySeries();
    ChartCanvas canvas;
    canvas.setWallClockX(true);
    canvas.setTitles({}, QStringLiteral("Meter time"), QStringLiteral("Volts"));
    canvas.setRightTitle(QStringLiteral("Amps"));
    canvas.setUnit(ChartCanvas::YAxis::Left, QStringLiteral("V"));
    canvas.setUnit(ChartCanvas::YAxis::Right, QStringLiteral("A"));
    canvas.setZoomAxes(ChartCanvas::ZoomAxes::Both);
    EXPECT_FALSE(canvas.hasRightAxis());
    for (const auto& [name, data, axis] : {std::tuple{"Van", volts, ChartCanvas::YAxis::Left},
                                           std::tuple{"Ia", amps, ChartCanvas::YAxis::Right}}) {
        auto* line = new QLineSeries;
        line->setName(QString::fromLatin1(name));
        canvas.addSeries(line, data, axis);
    }
    ASSERT_TRUE(canvas.fitToData());
    canvas.resize(1000, 500);
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    ASSERT_TRUE(test::saveScreenshot(&canvas, QStringLiteral("graph-kit-right-axis")));

    // Each axis frames its own series: volts 160..290, amps about 12..68, a tenth as margin.
    const AxisRange voltBounds = DataBounds::withMargin({160, 290});
    const AxisRange ampBounds = DataBounds::withMargin(*amps->yRange(0, 1e15));
    EXPECT_EQ(canvas.zoom().view().y, voltBounds);
    EXPECT_NEAR(canvas.rightView().min, ampBounds.min, 1e-9);
    EXPECT_NEAR(canvas.rightView().max, ampBounds.max, 1e-9);

    // A band over the middle half of the plot shows the middle half of both ranges; undo and
    // reset bring both back.
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, plotPoint(&canvas, 0.25, 0.25));
    QTest::mouseMove(canvas.viewport(), plotPoint(&canvas, 0.5, 0.5));
    QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, plotPoint(&canvas, 0.75, 0.75));
    const double pixel = voltBounds.span() / canvas.chart()->plotArea().height();
    EXPECT_NEAR(canvas.zoom().view().y.min, voltBounds.min + voltBounds.span() / 4, 2 * pixel);
    EXPECT_NEAR(canvas.zoom().view().y.max, voltBounds.max - voltBounds.span() / 4, 2 * pixel);
    const double ampPixel = pixel / voltBounds.span() * ampBounds.span();
    EXPECT_NEAR(canvas.rightView().min, ampBounds.min + ampBounds.span() / 4, 2 * ampPixel);
    EXPECT_NEAR(canvas.rightView().max, ampBounds.max - ampBounds.span() / 4, 2 * ampPixel);
    QTest::keyClick(&canvas, Qt::Key_Backspace);
    EXPECT_NEAR(canvas.rightView().max, ampBounds.max, 1e-9);

    // Read-out and hover give each series' sample in its own axis' values and unit.
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, {}, plotPoint(&canvas, 0.5, 0.5));
    const QStringList readout = canvas.cursorReadout();
    ASSERT_EQ(readout.size(), 2);
    const QPointF current = *amps->sampleNear(*canvas.cursorX());
    EXPECT_TRUE(readout[1].endsWith(QStringLiteral(", ") + TickLabels::value(current.y(), false) +
                                    QStringLiteral(" A")))
        << readout[1].toStdString();
    EXPECT_TRUE(readout[0].endsWith(QStringLiteral(" V"))) << readout[0].toStdString();
    const QPointF shownAmp = static_cast<QXYSeries*>(canvas.chart()->series().at(1))->at(40);
    const QPoint atAmp = canvas.positionOf(shownAmp, ChartCanvas::YAxis::Right).toPoint();
    EXPECT_NEAR(canvas.valueAt(atAmp, ChartCanvas::YAxis::Right).y(), shownAmp.y(),
                ampBounds.span() / 100);
    canvas.hoverAt(atAmp);
    EXPECT_TRUE(canvas.hoverText().startsWith(QStringLiteral("Ia: ")))
        << canvas.hoverText().toStdString();
    EXPECT_TRUE(
        canvas.hoverText().endsWith(TickLabels::value(shownAmp.y(), false) + QStringLiteral(" A")))
        << canvas.hoverText().toStdString();
}

TEST(GraphWindows, AcceptsMakersOnlyForListedGraphKinds)
{
    ASSERT_NE(GraphRegistry::instance().find(QStringLiteral("waveform")), nullptr);
    EXPECT_EQ(GraphRegistry::instance().find(QStringLiteral("waveform"))->logKind, 9);
    EXPECT_EQ(GraphRegistry::instance().find(QStringLiteral("trend"))->logKind, 3);
    EXPECT_EQ(GraphRegistry::instance().find(QStringLiteral("demand-trend"))->logKind, 4);
    int made = 0;
    const GraphWindows::Maker maker = [&made](const GraphSelection& selection, QWidget*) {
        ++made;
        return selection.position >= 0 ? new QWidget : nullptr;
    };
    struct Case
    {
        int kind;
        bool withMaker;
        bool accepted;
    };
    const Case cases[] = {{9, true, true}, {9, false, false}, {5, true, false}, {-1, true, false}};
    for (const Case& c : cases) {
        EXPECT_EQ(GraphWindows::add(c.kind, c.withMaker ? maker : nullptr), c.accepted) << c.kind;
        EXPECT_EQ(GraphWindows::has(c.kind), c.kind == 9) << c.kind;
    }
    GraphSelection selection;
    selection.logKind = 9;
    selection.position = 2;
    std::unique_ptr<QWidget> window(GraphWindows::open(selection, nullptr));
    EXPECT_NE(window, nullptr);
    selection.position = -1;
    EXPECT_EQ(GraphWindows::open(selection, nullptr), nullptr) << "the maker refused";
    selection.logKind = 3;
    EXPECT_EQ(GraphWindows::open(selection, nullptr), nullptr);
    EXPECT_EQ(made, 2);
    // The registered maker itself, for a window that offers it beside its own.
    selection.logKind = 9;
    selection.position = 0;
    std::unique_ptr<QWidget> again(GraphWindows::maker(9)(selection, nullptr));
    EXPECT_NE(again, nullptr);
    EXPECT_EQ(made, 3);
    EXPECT_FALSE(GraphWindows::maker(5));
    GraphWindows::remove(9);
    EXPECT_FALSE(GraphWindows::has(9));
}
