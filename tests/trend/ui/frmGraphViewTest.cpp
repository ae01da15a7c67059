// SPDX-License-Identifier: GPL-3.0-or-later
// The trend window driven headless over simulated meters, with its screenshots.
#include "trend/ui/frmGraphView.h"

#include "../TrendSimMeter.h"
#include "graph/ui/GraphOutput.h"
#include "platform/UserMessages.h"
#include "platform/WorkGuard.h"
#include "support/ui/Screenshot.h"
#include "trend/TrendTexts.h"
#include "trend/TrendTime.h"
#include "trend/ui/TrendAxisBar.h"
#include "trend/ui/TrendCapturePanel.h"
#include "trend/ui/TrendCommandBar.h"
#include "trend/ui/TrendPreviewCanvas.h"
#include "trend/ui/TrendTab.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace lorvane {
namespace {

using test::TrendSimMeter;

class TrendWindow
{
public:
    TrendWindow(int days, int interval, int points, int shown)
        : meter(days, interval, points), window(work, nullptr, dir.filePath("LogGraph.ini"))
    {
        request.meters = {meter.entry()};
        request.dataIds = meter.dataIds().mid(0, shown);
        request.from = TrendSimMeter::at(0, 0);
        request.to = TrendSimMeter::at(days - 1, 23, 59);
        window.resize(1200, 780);
        window.show();
    }

    TrendTab* tab() const { return window.tab(window.tabs()->currentIndex()); }
    void press(const char* name)
    {
        window.commandBar()->command(QString::fromLatin1(name))->trigger();
    }
    /// A drag on the Preview from `from` to `to` (widget x).
    void dragPreview(double from, double to)
    {
        QWidget* area = tab()->preview()->viewport();
        const int y = area->height() / 2;
        QTest::mousePress(area, Qt::LeftButton, {}, QPoint(int(from), y));
        QTest::mouseMove(area, QPoint(int((from + to) / 2), y));
        QTest::mouseMove(area, QPoint(int(to), y));
        QTest::mouseRelease(area, Qt::LeftButton, {}, QPoint(int(to), y));
    }
    const TrendView& view() { return window.session().view(); }

    QTemporaryDir dir;
    TrendSimMeter meter;
    WorkGuard work;
    RecordedMessages messages;
    ScopedUserMessages scope{messages};
    frmGraphView window;
    TrendRequest request;
};

TEST(frmGraphViewTest, PreviewWindowMovesAndResizesTheViewport)
{
    TrendWindow w(3, 5, 6, 3);
    ASSERT_TRUE(w.window.showGraph(w.request));
    ASSERT_EQ(w.window.tabs()->count(), 1);
    EXPECT_EQ(w.window.tabs()->tabText(0), TrendTexts::mainViewName());
    EXPECT_EQ(w.tab()->viewport()->seriesCount(), 3);
    const double span = w.window.session().dataSpan().span();
    for (int i = 0; i < 3; ++i)
        w.press("CmdViewZoomXIn");
    EXPECT_NEAR(w.view().viewport.x.span(), span * 0.512, 1);
    EXPECT_EQ(w.tab()->preview()->window(), w.view().viewport.x);

    struct Drag
    {
        const char* name;
        int grip; // 0 body, -1 left edge, 1 right edge
        double pixels;
        double minMoves; // sign of the expected change of each bound
        double maxMoves;
    };
    const Drag drags[] = {{"body right", 0, 80, 1, 1},
                          {"left edge left", -1, -60, -1, 0},
                          {"right edge left", 1, -40, 0, -1}};
    for (const Drag& d : drags) {
        const AxisRange before = w.view().viewport.x;
        const auto [left, right] = w.tab()->preview()->windowEdges();
        const double at = d.grip == 0 ? (left + right) / 2 : d.grip < 0 ? left : right;
        w.dragPreview(at, at + d.pixels);
        const AxisRange after = w.view().viewport.x;
        auto sign = [](double v) { return std::abs(v) < 1 ? 0.0 : v > 0 ? 1.0 : -1.0; };
        EXPECT_EQ(sign(after.min - before.min), d.minMoves) << d.name;
        EXPECT_EQ(sign(after.max - before.max), d.maxMoves) << d.name;
        EXPECT_EQ(w.tab()->viewport()->zoom().view().x, after)
            << d.name << ": the viewport follows";
    }
    EXPECT_TRUE(test::saveScreenshot(&w.window, QStringLiteral("trend-main")));
}

TEST(frmGraphViewTest, ValueBoxesBarRuleRightAxisAndPrintedPage)
{
    TrendWindow w(3, 5, 6, 3);
    ASSERT_TRUE(w.window.showGraph(w.request));
    QLineEdit* leftHigh = w.window.axisBar()->axisBox(1);
    for (const auto& [text, expected] : {std::pair{"150", 150.0}, std::pair{"2e9", 150.0}}) {
        leftHigh->setText(QString::fromLatin1(text));
        emit leftHigh->editingFinished();
        EXPECT_EQ(w.view().viewport.left.max, expected) << text;
        EXPECT_EQ(leftHigh->text().toDouble(), expected) << "a refused value is put back";
    }
    w.press("CmdDefaultExtents");
    w.window.menuAction(QStringLiteral("IDM_VIEW_GTYPE_BAR"))->trigger();
    EXPECT_EQ(w.messages.texts().last(), TrendTexts::tooManyBarPoints()) << "3 x 864 points";
    EXPECT_EQ(w.view().type, TrendGraphType::Line);

    w.window.setRange(TrendSimMeter::at(1, 0), TrendSimMeter::at(1, 12));
    w.window.menuAction(QStringLiteral("IDM_VIEW_GTYPE_BAR"))->trigger();
    EXPECT_EQ(w.view().type, TrendGraphType::Bar);
    QMenu* axes = w.window.findChild<QMenu*>();
    ASSERT_NE(axes, nullptr);
    const QList<QAction*> rightAxis = w.window.findChildren<QMenu*>().last()->actions();
    ASSERT_EQ(rightAxis.size(), 3);
    rightAxis.at(2)->trigger();
    EXPECT_EQ(w.view().sets.at(2).axis, TrendAxis::Right);
    EXPECT_TRUE(w.tab()->viewport()->hasRightAxis());
    EXPECT_TRUE(test::saveScreenshot(&w.window, QStringLiteral("trend-bars-right-axis")));

    std::unique_ptr<QWidget> page(w.window.makePrintPage());
    EXPECT_TRUE(test::saveScreenshot(page.get(), QStringLiteral("trend-printed-page")));
}

TEST(frmGraphViewTest, DataCaptureStepsAndAMillisecondTab)
{
    TrendWindow w(1, 5, 4, 2);
    ASSERT_TRUE(w.window.showGraph(w.request));
    w.window.menuAction(QStringLiteral("IDM_TOOLS_DATACAP"))->trigger();
    TrendCapturePanel* panel = w.window.capturePanel();
    ASSERT_TRUE(panel->isVisible());
    QTest::mouseClick(panel->nextButton(), Qt::LeftButton);
    EXPECT_EQ(panel->timestampBox()->text(), QStringLiteral("2024-03-04 00:00:00.000"));
    QTest::mouseClick(panel->previousButton(), Qt::LeftButton);
    EXPECT_EQ(w.messages.texts().last(), TrendTexts::noPreviousPoint());

    panel->byDuration()->setChecked(true);
    panel->durationBox()->setValue(3600000);
    QTest::mouseClick(panel->generateButton(), Qt::LeftButton);
    ASSERT_EQ(w.window.tabs()->count(), 2);
    EXPECT_EQ(w.window.tabs()->tabText(1), TrendTexts::msViewName());
    EXPECT_EQ(w.view().sets.first().size(), 13) << "an hour of five-minute values, both ends";
    EXPECT_TRUE(test::saveScreenshot(&w.window, QStringLiteral("trend-msec-view")));

    w.messages.setAnswer(false);
    w.window.closeCurrentView();
    EXPECT_EQ(w.window.tabs()->count(), 2) << "No keeps the tab";
    w.messages.setAnswer(true);
    w.window.closeCurrentView();
    EXPECT_EQ(w.window.tabs()->count(), 1);
    w.window.closeCurrentView();
    EXPECT_EQ(w.window.tabs()->count(), 1) << "the main tab stays";
}

TEST(frmGraphViewTest, RefusesEmptyInputAndDrawsNinetyDaysOfFortyEightPoints)
{
    TrendWindow w(90, 15, 48, 48);
    EXPECT_FALSE(w.window.showGraph(TrendRequest{}));
    EXPECT_EQ(w.messages.texts().last(), TrendTexts::noDataInput());
    ASSERT_TRUE(w.window.showGraph(w.request));
    EXPECT_EQ(w.view().sets.size(), 48);
    EXPECT_LE(w.tab()->viewport()->pointsShown(), 48 * 4 * 1200);
    // The energy counters dwarf the volts: on the right axis each reads in its own scale.
    for (int i = 0; i < 48; ++i)
        if (w.view().sets.at(i).maximum > 1000)
            w.window.session().setAxis(i, TrendAxis::Right);
    w.press("CmdReorganizeGraph");
    EXPECT_TRUE(w.tab()->viewport()->hasRightAxis());
    w.window.setRange(TrendSimMeter::at(40, 0), TrendSimMeter::at(47, 0));
    EXPECT_TRUE(test::saveScreenshot(&w.window, QStringLiteral("trend-90-days-48-points")));
}

} // namespace
} // namespace lorvane
