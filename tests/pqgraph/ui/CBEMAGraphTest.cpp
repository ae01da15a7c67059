// SPDX-License-Identifier: GPL-3.0-or-later
// The power quality graph window on the PQ view of two simulated meters: the three pages of
// Combo1, the read-out and capture of an event, the 3D view turned with the mouse, the sums
// beside the histogram, Copy's files and the fallback message of a bad boundary line file.
#include "platform/UserMessages.h"
#include "platform/WorkGuard.h"
#include "pqgraph/ui/CBEMAGraph_Ex1.h"
#include "pqgraph/ui/PqBarsPage.h"
#include "pqgraph/ui/PqHistogramPage.h"
#include "pqgraph/ui/PqScatterCanvas.h"
#include "pqgraph/ui/PqScatterPage.h"
#include "query/WaveformSimMeters.h"
#include "query/views/pq/PqView.h"
#include "support/TestEnvironment.h"
#include "support/ui/Screenshot.h"

#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest/QTest>
#include <cmath>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

struct Window
{
    Window()
        : context(sim.context({WaveformSimMeters::standard(), WaveformSimMeters::talmo()},
                              "2024-03-04 00:00:00", "2024-03-05 23:59:59")),
          numbers(PqView::run(context).numbers), window(context.scratch->database(), work)
    {
        window.setEnvelopeSetting([this] { return setting; });
        EXPECT_TRUE(window.open(numbers));
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    WaveformSimMeters sim;
    QueryContext context;
    QueryNumbers numbers;
    WorkGuard work;
    CBEMAGraph_Ex1::EnvelopeSetting setting;
    CBEMAGraph_Ex1 window;
};

} // namespace

TEST(CBEMAGraph, PagesReadOutAndCopyOfTheQuerysEvents)
{
    Window w;
    CBEMAGraph_Ex1& window = w.window;
    const auto* combo = window.findChild<QComboBox*>(QStringLiteral("Combo1"));
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->count(), 3);
    QStringList buttons;
    for (const QPushButton* button : window.findChildren<QPushButton*>())
        buttons << button->text();
    EXPECT_EQ(buttons, (QStringList{"&Help", "&Cancel", "&Print", "C&opy"}));

    // 2D: six channel subsets and the two lines of the curve; the pointer over an event reads
    // it, and a double click on an event with a capture asks for that capture.
    PqScatterCanvas* canvas = window.scatterPage()->canvas();
    EXPECT_EQ(canvas->seriesCount(), 8);
    ASSERT_TRUE(test::saveScreenshot(&window, QStringLiteral("pq-graph-2d")));
    const PqGraphSession& session = window.session();
    QSignalSpy captures(&window, &CBEMAGraph_Ex1::captureRequested);
    int linked = 0;
    for (int c = 0; c < PqEvents::channelCount && linked == 0; ++c) {
        for (const PqEvent& event : session.events()[c]) {
            const QPoint at =
                canvas->positionOf({std::log10(event.durationSeconds), event.magnitudePercent})
                    .toPoint();
            QTest::mouseMove(canvas->viewport(), at);
            ASSERT_TRUE(window.scatterPage()->hoverText().startsWith(
                QString::fromLatin1(PqEvents::channels()[c].name)))
                << window.scatterPage()->hoverText().toStdString();
            if (!session.captureOf(event))
                continue;
            ASSERT_TRUE(test::saveScreenshot(&window, QStringLiteral("pq-graph-2d-hover")));
            QTest::mouseDClick(canvas->viewport(), Qt::LeftButton, {}, at);
            ++linked;
            break;
        }
    }
    ASSERT_EQ(linked, 1);
    ASSERT_EQ(captures.count(), 1);
    EXPECT_GT(captures.first().at(1).toLongLong(), 0);

    // 3D: a drag turns and tilts the view.
    window.showPage(CBEMAGraph_Ex1::Graph3d);
    PqBarsPage* bars = window.barsPage();
    const double turn = bars->turn();
    QTest::mousePress(bars, Qt::LeftButton, {}, QPoint(300, 300));
    QTest::mouseMove(bars, QPoint(360, 290));
    QTest::mouseRelease(bars, Qt::LeftButton, {}, QPoint(360, 290));
    EXPECT_NE(bars->turn(), turn);
    bars->setView(-35, 35);
    ASSERT_TRUE(test::saveScreenshot(&window, QStringLiteral("pq-graph-3d")));

    // Histogram: the table of sums shows the session's numbers.
    window.showPage(CBEMAGraph_Ex1::Histogram);
    const QTableWidget* table = window.histogramPage()->table();
    const PqCounts::Sum& last = session.sums().back();
    EXPECT_EQ(table->item(20, 1)->text().toLongLong(), last.cumulative);
    EXPECT_EQ(last.cumulative, PqEvents::count(session.events()));
    EXPECT_EQ(table->item(20, 2)->text(), QStringLiteral("100.00"));
    ASSERT_TRUE(test::saveScreenshot(&window, QStringLiteral("pq-graph-histogram")));

    // Copy: the page offered as each picture format.
    const QTemporaryDir dir;
    for (const char* suffix : {"png", "svg", "pdf"}) {
        const QString path = dir.filePath(QStringLiteral("PQ.") + QLatin1String(suffix));
        window.setFileChooser([&path](const QString&) { return path; });
        window.copy();
        EXPECT_GT(QFileInfo(path).size(), 1000) << suffix;
    }
}

TEST(CBEMAGraph, BoundaryFilesDrawTheirLinesOrFallBackOnTheCurveWithTheirReason)
{
    Window w;
    auto* recorded = dynamic_cast<RecordedMessages*>(&userMessages());
    ASSERT_NE(recorded, nullptr);
    recorded->clear();
    // The ITI curve of the library: its two lines, one legend entry each, nothing to tell.
    w.setting = {false, test::dataFolder() + QStringLiteral("/curves/ITIC.ini")};
    w.window.showPage(CBEMAGraph_Ex1::Graph2d);
    EXPECT_FALSE(w.window.session().envelope().builtIn);
    EXPECT_EQ(w.window.scatterPage()->canvas()->seriesCount(), 8);
    EXPECT_TRUE(recorded->texts().isEmpty());
    ASSERT_TRUE(test::saveScreenshot(&w.window, QStringLiteral("pq-graph-2d-itic")));

    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bad.ini"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[qlmpqgraph]\nlines=1\nl1_set1_points=2\nl1_set1_xy1=0.01/50\nl1_set1_xy2=/5\n");
    file.close();
    w.setting = {false, path};
    w.window.showPage(CBEMAGraph_Ex1::Graph2d);
    EXPECT_EQ(recorded->texts(),
              QStringList{QStringLiteral("Cannot read line 1, set 1, point 2. Use CBEMA curve.")});
    EXPECT_TRUE(w.window.session().envelope().builtIn);
    // A redraw with the same refusal does not ask again.
    w.window.showPage(CBEMAGraph_Ex1::Graph2d);
    EXPECT_EQ(recorded->texts().size(), 1);
}
