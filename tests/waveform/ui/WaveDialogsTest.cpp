// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs of the waveform window: display settings, properties and the composition set-up.
#include "WaveWindowReads.h"
#include "platform/UserMessages.h"
#include "support/RecordingProgress.h"
#include "support/TestEnvironment.h"
#include "support/WaveWindowFixture.h"
#include "support/ui/Screenshot.h"
#include "waveform/WaveDisplaySettings.h"
#include "waveform/ui/TalWaveGraphPE.h"
#include "waveform/ui/WaveCapturePage.h"
#include "waveform/ui/WaveCompositionPage.h"
#include "waveform/ui/WaveDrawStyle.h"
#include "waveform/ui/WaveGraphButtons.h"
#include "waveform/ui/WaveGraphCompSetup.h"
#include "waveform/ui/WaveGraphSetup.h"
#include "waveform/ui/WaveInterharmonicPage.h"
#include "waveform/ui/WavePropertyFrm.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QTableWidget>
#include <algorithm>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::openNow;
using lorvane::test::WaveWindowFixture;

TEST(WaveGraphSetup, OkWritesEveryKeyAndCancelNone)
{
    WaveWindowFixture fixture;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    {
        WaveGraphSetup setup(fixture.settingsFile());
        EXPECT_EQ(setup.windowTitle(), QStringLiteral("Waveform Display Settings"));
        EXPECT_EQ(setup.general()->item(0, 0)->text(), QStringLiteral("Startup Display Mode"));
        EXPECT_EQ(setup.choice(0)->count(), 3);
        EXPECT_EQ(setup.choice(0)->itemText(2), QStringLiteral("Overlay (Group)"));
        setup.choice(0)->setCurrentIndex(2);
        setup.reject();
    }
    EXPECT_FALSE(QFile::exists(fixture.settingsFile()));

    WaveGraphSetup setup(fixture.settingsFile());
    setup.show();
    lorvane::test::saveScreenshot(&setup, QStringLiteral("waveform-settings"));
    setup.choice(0)->setCurrentIndex(1);
    setup.choice(3)->setCurrentIndex(2);
    setup.choice(6)->setCurrentIndex(0);
    setup.subsets()->item(6, 1)->setCheckState(Qt::Unchecked);
    qobject_cast<QComboBox*>(setup.subsets()->cellWidget(2, 3))->setCurrentIndex(5);
    setup.accept();
    EXPECT_EQ(setup.result(), QDialog::Accepted);

    const WaveDisplaySettings written = WaveDisplaySettings::read(fixture.settingsFile());
    EXPECT_EQ(written.displayMode, WaveDisplaySettings::DisplayMode::Overlay);
    EXPECT_EQ(written.pointSize, 2);
    EXPECT_EQ(written.talmoFreq, 50);
    EXPECT_FALSE(written.overlayItems[6]);
    EXPECT_TRUE(written.overlayItems[5]);
    EXPECT_EQ(written.itemLineType[2], 5);
    QFile file(fixture.settingsFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("[Waveform]"));
    EXPECT_TRUE(text.contains("Item14PointType=0"));

    // The window follows the written mode: one overlay graph of the selected items.
    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), 0, "overlay"));
    EXPECT_EQ(window.graphNames(), QStringList{"Overlay graph"});
}

TEST(WavePropertyFrm, RowsOfTheOpenCaptureAndCopy)
{
    WaveWindowFixture fixture;
    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    ASSERT_TRUE(
        openNow(window, fixture.numbers(), fixture.series(), fixture.periodic(128), "sine"));
    const lorvane::WaveformRecord& record = window.capture().record();
    // The 128-per-cycle capture is wired as a wye: its drawing stands beside the Hookup row.
    const QString picture = lorvane::test::dataFolder() + QStringLiteral("/sysimage/") +
                            WaveformProperties::hookupPicture(record.hookUp, record.deviceTypeId) +
                            QStringLiteral(".svg");
    ASSERT_TRUE(QFile::exists(picture)) << picture.toStdString();
    WavePropertyFrm properties(WaveformProperties::rows(record, std::nullopt), picture);
    EXPECT_EQ(properties.windowTitle(), QStringLiteral("Waveform Properties"));
    QTableWidget* table = properties.table();
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), QStringLiteral("Property Name"));
    EXPECT_EQ(table->item(0, 0)->text(), QStringLiteral("Device"));
    EXPECT_EQ(table->item(0, 1)->text(), QStringLiteral("Main Switchboard"));
    QStringList names;
    for (int r = 0; r < table->rowCount(); ++r)
        names << table->item(r, 0)->text();
    EXPECT_TRUE(names.contains(QStringLiteral("Sampling Rate")));
    EXPECT_FALSE(names.contains(QStringLiteral("PQ Start")));
    const int hookup = int(names.indexOf(QStringLiteral("Hookup")));
    ASSERT_GE(hookup, 0);
    EXPECT_EQ(table->item(hookup, 1)->text(), QStringLiteral("Wye"));
    EXPECT_FALSE(table->item(hookup, 1)->icon().isNull());
    properties.copy();
    EXPECT_TRUE(
        QApplication::clipboard()->text().startsWith(QStringLiteral("Device\tMain Switchboard\n")));
    properties.show();
    lorvane::test::saveScreenshot(&properties, QStringLiteral("waveform-properties"));
}

TEST(WaveGraphCompSetup, ComposesChannelsOfNeighbouringCaptures)
{
    WaveWindowFixture fixture;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    const int sine = fixture.periodic(128);
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), sine, "sine"));
    window.show();
    window.setMark(1, 10.0);
    window.setMark(2, 30.0);

    int shownRows = 0;
    window.dialogs().setDialogRunner([&](QDialog& dialog) {
        auto* setup = qobject_cast<WaveGraphCompSetup*>(&dialog);
        if (!setup)
            return int(QDialog::Rejected);
        shownRows = setup->currentItems()->rowCount();
        setup->graph();
        EXPECT_EQ(messages.texts().last(), QStringLiteral("Nothing to graph."));
        setup->add();
        EXPECT_EQ(messages.texts().last(), QStringLiteral("Please select an item."));
        setup->currentItems()->selectRow(0);
        setup->add();
        setup->setUseSelectedWindow(true);
        setup->currentItems()->selectRow(setup->currentItems()->rowCount() - 1);
        setup->add();
        EXPECT_EQ(setup->selectedItems()->item(1, 6)->text(), QStringLiteral("Section"));
        setup->show();
        lorvane::test::saveScreenshot(setup, QStringLiteral("waveform-composition-setup"));
        setup->graph();
        return setup->result();
    });
    window.showCompositionSetup();
    EXPECT_GE(shownRows, 7);
    ASSERT_EQ(window.view(), 2);
    ASSERT_EQ(window.session().composition().items().size(), 2);
    WaveStripChart* chart = window.compositionPage()->chart();
    EXPECT_EQ(chart->chart()->title(), QStringLiteral("Advanced Waveform Analysis"));
    EXPECT_EQ(chart->chart()->series().size(), 2);
    // The section keeps the 20 ms between the marks; both start at 0 ms.
    EXPECT_DOUBLE_EQ(chart->xMin(), 0);
    EXPECT_GT(chart->xMax(), 20.0);
    lorvane::test::saveScreenshot(&window, QStringLiteral("waveform-composition"));
    // Each capture of the list is its share of the composition's progress.
    RecordingProgress progress;
    QStringList failures;
    EXPECT_EQ(window.session().compositionCurves(failures, &progress).size(), 2);
    EXPECT_TRUE(failures.isEmpty());
    EXPECT_TRUE(progress.fractions.contains(0.5));
    EXPECT_TRUE(std::is_sorted(progress.fractions.cbegin(), progress.fractions.cend()));
    EXPECT_DOUBLE_EQ(progress.fractions.last(), 1.0);

    // The advanced view carries Command2; &Back returns to the capture.
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Advanced);
    for (int i = 0; i < TalWaveGraphPE::ViewCommandCount; ++i)
        EXPECT_EQ(window.buttons()->viewCommand(i)->isVisible(), i <= TalWaveGraphPE::ViewZoomOut)
            << i;
    // Fault 8: the advanced view had no zoom or marks of its own.
    window.zoomTo(2.0, 8.0);
    EXPECT_DOUBLE_EQ(chart->xMax(), 8.0);
    window.setMark(1, 3.0);
    EXPECT_EQ(chart->annotations().size(), 1);
    window.undoZoom();
    EXPECT_GT(chart->xMax(), 20.0);
    window.buttons()->viewCommand(TalWaveGraphPE::ViewBack)->click();
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Global);
    EXPECT_TRUE(window.buttons()->command(TalWaveGraphPE::Advanced)->isVisible());
    EXPECT_EQ(window.session().zoom().depth(), 0) << "the capture's zoom is its own";

    // Fault 8: the right-hand list survives &Back.
    int kept = 0;
    window.dialogs().setDialogRunner([&](QDialog& dialog) {
        if (auto* setup = qobject_cast<WaveGraphCompSetup*>(&dialog))
            kept = setup->selectedItems()->rowCount();
        return int(QDialog::Rejected);
    });
    window.showCompositionSetup();
    EXPECT_EQ(kept, 2);
    EXPECT_EQ(window.session().composition().items().size(), 2);
}

TEST(WaveDrawStyle, Fault9EveryItemPointTypeDrawsItsOwnMarker)
{
    // The stored point types were ignored: every curve drew the same dot.
    QList<QImage> markers;
    for (int type = 0; type < 14; ++type) {
        const QImage marker = WaveDrawStyle::marker(type, Qt::black, 7);
        for (int other = 0; other < markers.size(); ++other)
            EXPECT_NE(marker, markers.at(other)) << type << " draws like " << other;
        markers << marker;
    }
}
