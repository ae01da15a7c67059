// SPDX-License-Identifier: GPL-3.0-or-later
// The power graph windows over a simulated week of snapshots: the item choice, the circular
// and XY pictures, Auto Show's Timer1, print, export, and the colour and label set-ups.
#include "platform/SqliteDatabase.h"
#include "platform/UserMessages.h"
#include "powergraph/ui/PGSelColor.h"
#include "powergraph/ui/PGSelLabel.h"
#include "powergraph/ui/PGraph.h"
#include "powergraph/ui/PGraphCanvas.h"
#include "powergraph/ui/PGraphPanel.h"
#include "powergraph/ui/SelPGraph.h"
#include "query/InputSimFixture.h"
#include "query/views/snapshot/SnapshotView.h"
#include "support/ui/Screenshot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

namespace {

/// A week of quarter-hour snapshots of one simulated meter, read into a snapshot query.
struct WeekQuery
{
    SimMeters sim;
    QueryContext context;
    std::unique_ptr<SnapshotView> view;
    QString ini;
    SqliteDatabase dictionary{QStringLiteral(LORVANE_BIN_DIR "/QLMNameList.DB"),
                              SqliteDatabase::Mode::ReadOnly};

    WeekQuery()
    {
        const QString meter = sim.dir.filePath(QStringLiteral("Week.DB"));
        simulate({QStringLiteral("--out"), meter, QStringLiteral("--start"),
                  QStringLiteral("2024-03-04"), QStringLiteral("--days"), QStringLiteral("7"),
                  QStringLiteral("--interval-minutes"), QStringLiteral("15"),
                  QStringLiteral("--points"), QStringLiteral("12")});
        context = sim.context({meter}, "2024-03-04 00:00:00", "2024-03-10 23:59:59");
        context.dataIds = {20617, 20621, 20625, 20629, 20633, 20637, 21017};
        context.tempLogRecSize = 50000;
        view = std::make_unique<SnapshotView>(context, LogKind::Snapshots);
        view->load();
        while (!view->pager().allRead())
            view->step(1);
        ini = sim.dir.filePath(QStringLiteral("Lorvane.Ini"));
    }

    /// The items of the first `count` rows, chosen through SelPGraph.
    QList<PGraphItem> items(int count)
    {
        SelPGraph choice(*sim.scratch, &dictionary, view->numbers().query, nullptr);
        QList<int> rows;
        for (int i = 0; i < count; ++i)
            rows << i;
        choice.choose(rows);
        EXPECT_TRUE(choice.confirm());
        return choice.items();
    }
};

RecordedMessages& recorded()
{
    return static_cast<RecordedMessages&>(userMessages());
}

} // namespace

TEST(SelPGraph, SixItemsPassSevenAreRefusedWithTheirCounters)
{
    WeekQuery q;
    SelPGraph choice(*q.sim.scratch, &q.dictionary, q.view->numbers().query, nullptr);
    ASSERT_EQ(choice.grid()->rowCount(), 7);
    EXPECT_EQ(choice.grid()->horizontalHeaderItem(0)->text(), "Data ID");
    recorded().clear();
    EXPECT_FALSE(choice.confirm());
    choice.choose({0, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(choice.counterText(), "Items: 7   devices: 1   total items: 7");
    choice.show();
    EXPECT_TRUE(saveScreenshot(&choice, QStringLiteral("power-graph-choice")));
    EXPECT_FALSE(choice.confirm());
    EXPECT_TRUE(choice.items().isEmpty()) << "nothing is read for a refused choice";
    EXPECT_EQ(recorded().texts(),
              (QStringList{QStringLiteral("Please select the items you want to graph."),
                           QStringLiteral("Maximum 6 items. Too many items selected.")}));
    choice.choose({0, 1, 2, 3, 4, 5});
    ASSERT_TRUE(choice.confirm());
    EXPECT_EQ(choice.items().size(), 6);
    EXPECT_EQ(choice.items().first().records.size(), 7 * 96 - 12); // less the outage of day 2

    // Beside the trend graph of the grid, its choice hands on without a choice of rows.
    SelPGraph both(*q.sim.scratch, nullptr, q.view->numbers().query, nullptr, true);
    both.chooseTrend();
    EXPECT_TRUE(both.trendChosen());
    EXPECT_TRUE(both.confirm());
    EXPECT_TRUE(both.items().isEmpty());
}

TEST(PGraph, AWeekOnTheDialAndADayOnTheXYGraph)
{
    WeekQuery q;
    PowerGraphDefaults labels;
    labels.comment = {QStringLiteral("Substation North, feeder 4"),
                      QStringLiteral("Phase voltages, week 10")};
    ASSERT_TRUE(PGraphModule::SavePowerGraphDefaults(q.ini, labels));
    PGraph circle(q.ini);
    circle.ShowPowerGraph(q.items(3), PGraphView::Kind::Circular);
    circle.panel()->numDays->setText(QStringLiteral("7"));
    circle.panel()->maxY->setText(QStringLiteral("122"));
    circle.panel()->minY->setText(QStringLiteral("116"));
    ASSERT_TRUE(circle.redraw());
    EXPECT_EQ(circle.panel()->records->text(), QString::number(3 * (7 * 96 - 12)));
    circle.resize(1150, 720);
    circle.show();
    EXPECT_TRUE(saveScreenshot(&circle, QStringLiteral("power-graph-circular")));

    PGraph xy(q.ini);
    xy.ShowPowerGraph(q.items(3), PGraphView::Kind::XY);
    xy.panel()->maxY->setText(QStringLiteral("122"));
    xy.panel()->minY->setText(QStringLiteral("116"));
    xy.panel()->start->setText(QStringLiteral("03/05/2024 00:00:00"));
    ASSERT_TRUE(xy.redraw());
    xy.resize(1150, 720);
    xy.show();
    EXPECT_TRUE(saveScreenshot(&xy, QStringLiteral("power-graph-xy")));
    // The background of the XY kind is black, the circle's white.
    const QImage picture = xy.canvas()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(5, 5), QColor(Qt::black));
    EXPECT_EQ(circle.canvas()->grab().toImage().pixelColor(5, 5), QColor(Qt::white));
}

TEST(PGraph, EntriesAutoShowPrintExportAndClose)
{
    WeekQuery q;
    auto* window = new PGraph(q.ini);
    window->ShowPowerGraph(q.items(2), PGraphView::Kind::XY);
    PGraphPanel* panel = window->panel();
    recorded().clear();
    panel->numDays->setText(QStringLiteral("24856"));
    EXPECT_FALSE(window->redraw());
    EXPECT_EQ(recorded().texts().last(), "Number of days to view cannot be > 24855");
    EXPECT_EQ(window->session()->view().numDaysView, 1);
    panel->numDays->setText(QStringLiteral("1"));
    // Nothing lies before the first day: Previous only beeps; Next moves a day on.
    const qint64 first = window->session()->view().start;
    const int beeps = recorded().beeps();
    panel->previous->click();
    EXPECT_EQ(recorded().beeps(), beeps + 1);
    panel->next->click();
    EXPECT_EQ(window->session()->view().start, first + PGraphView::msPerDay);

    // Timer1 follows the slider; printing is refused while it runs.
    panel->speed->setValue(0);
    panel->autoShow->setChecked(true);
    ASSERT_TRUE(window->timer1().isActive());
    EXPECT_EQ(window->timer1().interval(), 1500);
    panel->speed->setValue(10);
    EXPECT_EQ(window->timer1().interval(), 100);
    bool printed = false;
    QString waitWhilePrinting;
    QImage page;
    window->setPrintTarget([&](QWidget* picture) {
        printed = true;
        waitWhilePrinting = window->waitText();
        page = picture->grab().toImage();
        return true;
    });
    window->print();
    EXPECT_FALSE(printed);
    EXPECT_EQ(recorded().texts().last(), "You cannot print while Auto Show is running");
    panel->autoShow->setChecked(false);
    EXPECT_FALSE(window->timer1().isActive());

    // Without "Color Printout" the page is black on white.
    window->print();
    ASSERT_TRUE(printed);
    EXPECT_EQ(waitWhilePrinting, "Updating chart. Please wait");
    EXPECT_TRUE(window->waitText().isEmpty());
    int coloured = 0;
    for (int y = 0; y < page.height(); y += 2)
        for (int x = 0; x < page.width(); x += 2)
            coloured += page.pixelColor(x, y).saturation() > 40 ? 1 : 0;
    EXPECT_EQ(coloured, 0);

    const QString csv = q.sim.dir.filePath(QStringLiteral("records.csv"));
    ASSERT_TRUE(window->exportData(csv));
    QFile file(csv);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count('\n'), 1 + window->session()->totalRecords());

    // Auto Show runs on and stops with the close; nothing is saved without "Save Settings".
    panel->autoShow->setChecked(true);
    window->close();
    QApplication::processEvents();
    EXPECT_FALSE(QFile::exists(q.ini));
}

TEST(PGSelColor, RestoringTheXYColoursKeepsTheCircleAndApplyStores)
{
    QTemporaryDir dir;
    const QString ini = dir.filePath(QStringLiteral("Lorvane.Ini"));
    PGSelColor dialog(ini);
    dialog.entryList()->setCurrentRow(0);
    dialog.slider(1)->setValue(128); // circle channel 1: red with green 128
    dialog.show();
    EXPECT_TRUE(saveScreenshot(&dialog, QStringLiteral("power-graph-colors")));
    dialog.setKind(PGraphView::Kind::XY);
    dialog.slider(2)->setValue(64);
    recorded().clear();
    dialog.restore();
    EXPECT_EQ(recorded().texts(), QStringList{QStringLiteral("Default settings restored")});
    ASSERT_TRUE(dialog.apply());
    const PowerGraphDefaults stored = PGraphModule::LoadPowerGraphDefaults(ini);
    EXPECT_EQ(stored.of(PGraphView::Kind::Circular).at(0), (PGraphColor{255, 128, 0}));
    EXPECT_EQ(stored.of(PGraphView::Kind::XY).at(0), (PGraphColor{255, 0, 0}));

    PGSelLabel labels(ini);
    labels.line(0)->setText(QStringLiteral("Feeder 4"));
    ASSERT_TRUE(labels.store());
    EXPECT_EQ(PGraphModule::LoadPowerGraphDefaults(ini).comment.at(0), "Feeder 4");
    labels.restore();
    EXPECT_TRUE(labels.line(0)->text().isEmpty() && labels.line(1)->text().isEmpty());
}
