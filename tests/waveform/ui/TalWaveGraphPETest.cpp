// SPDX-License-Identifier: GPL-3.0-or-later
// The waveform window on captures written by lorvane-sim: strips and labels, statistics of a
// clicked cycle, marks, zoom, navigation, the interharmonic view, exports and printing.
#include "waveform/ui/TalWaveGraphPE.h"

#include "WaveWindowReads.h"
#include "app/ui/frmProgress.h"
#include "platform/UserMessages.h"
#include "platform/WorkGuard.h"
#include "support/WaveWindowFixture.h"
#include "support/ui/Screenshot.h"
#include "waveform/ui/WaveBarChart.h"
#include "waveform/ui/WaveCapturePage.h"
#include "waveform/ui/WaveCompositionPage.h"
#include "waveform/ui/WaveGraphButtons.h"
#include "waveform/ui/WaveInterharmonicPage.h"
#include "waveform/ui/frmSetYExtents.h"
#include "waveform/ui/selWaveGraph_Export.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::openNow;
using lorvane::test::stepNow;
using lorvane::test::WaveWindowFixture;

namespace {

bool hasAnnotation(const WaveStripChart* chart, const QString& text)
{
    for (const WaveMarks::Annotation& a : chart->annotations()) {
        if (a.text == text)
            return true;
    }
    return false;
}

/// A capture window over the fixture's meter with its messages recorded.
struct WindowRun
{
    WaveWindowFixture fixture;
    RecordedMessages messages;
    ScopedUserMessages scope{messages};
    TalWaveGraphPE window{fixture.scratch(), fixture.settingsFile(), fixture.work()};
};

} // namespace

TEST(TalWaveGraphPE, OpensACaptureWithStripsLabelsAndCycleStatistics)
{
    WaveWindowFixture fixture;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    const int pureSine = fixture.periodic(128);
    ASSERT_GE(pureSine, 0);

    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), pureSine, "Waveforms #1"))
        << messages.texts().join(u'\n').toStdString();
    window.show();
    const WaveformChannels& channels = window.capture().channels();
    for (int c = 0; c < 7; ++c) {
        ASSERT_NE(window.capturePage()->strip(c), nullptr);
        EXPECT_EQ(window.capturePage()->strip(c)->chart()->title(), channels.labels.at(c));
        EXPECT_GT(window.capturePage()->strip(c)->pointsShown(), 0);
    }
    EXPECT_EQ(window.capturePage()->strip(0)->chart()->title(), QStringLiteral("Van"));
    EXPECT_EQ(window.capturePage()->strip(TalWaveGraphPE::inputsGraph)->chart()->title(),
              QStringLiteral("Inputs"));
    EXPECT_TRUE(hasAnnotation(window.capturePage()->strip(0), QStringLiteral("Trigger")));
    EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("Main Switchboard - Waveform #")));
    // The chart never holds more than a few points per pixel column.
    EXPECT_LT(window.capturePage()->strip(0)->pointsShown(), channels.sampleCount() + 3);
    lorvane::test::saveScreenshot(&window, QStringLiteral("waveform-window"));

    window.setDetailsOn(true);
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::Details)->text(),
              QStringLiteral("Waveform &Details Off"));
    window.clickAt(3, 5.0);
    EXPECT_EQ(window.session().statistics().thdText, QStringLiteral(".00"));
    EXPECT_EQ(window.session().statistics().kFactorText, QStringLiteral("1.00"));
    const QStringList lines = window.session().statisticsText().split(u'\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(lines.at(3).startsWith(QStringLiteral("%THD:")));
    EXPECT_TRUE(lines.at(3).endsWith(QStringLiteral(".00")));
    EXPECT_EQ(window.capturePage()->strip(3)->textBlock(), window.session().statisticsText());
    EXPECT_TRUE(window.capturePage()->strip(0)->isHidden())
        << "the detail view shows the focus strip only";
    ASSERT_TRUE(window.capturePage()->harmonicChart()->isVisible());
    ASSERT_GT(window.capturePage()->harmonicChart()->values().size(), 2);
    EXPECT_NEAR(window.capturePage()->harmonicChart()->values().at(1), 100.0, 1e-3);
    EXPECT_TRUE(window.graphNames().contains(QStringLiteral("Harmonic")));
    lorvane::test::saveScreenshot(&window, QStringLiteral("waveform-details"));

    window.setDetailsOn(false);
    EXPECT_FALSE(window.capturePage()->harmonicChart()->isVisible());
    EXPECT_TRUE(window.capturePage()->strip(0)->isVisible());
    window.setNeutralOn(false);
    EXPECT_TRUE(window.capturePage()->strip(6)->isHidden());
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::NeutralCurrent)->text(),
              QStringLiteral("I&n On"));
}

TEST(TalWaveGraphPE, MarksZoomAndNavigation)
{
    WindowRun run;
    auto& [fixture, messages, scope, window] = run;
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), 0, "first"));

    // Mark 2 left of Mark 1: the duration stays positive.
    window.setMark(1, 20.0);
    window.setMark(2, 7.66);
    EXPECT_TRUE(
        hasAnnotation(window.capturePage()->strip(0), QStringLiteral("     Duration = 12.34ms")));
    EXPECT_TRUE(hasAnnotation(window.capturePage()->strip(5), QStringLiteral("Mark 2")));
    messages.setAnswer(false);
    window.clearMarks();
    EXPECT_TRUE(window.session().marks().bothSet());
    EXPECT_EQ(messages.texts().last(),
              QStringLiteral("Are you sure you want to clear the markers?"));
    messages.setAnswer(true);
    window.clearMarks();
    EXPECT_FALSE(window.session().marks().isSet(1));
    EXPECT_FALSE(hasAnnotation(window.capturePage()->strip(0), QStringLiteral("Mark 1")));

    const double fullEnd = window.capturePage()->strip(0)->xMax();
    window.zoomTo(10.0, 20.0);
    for (int c = 0; c < 8; ++c) {
        EXPECT_DOUBLE_EQ(window.capturePage()->strip(c)->xMin(), 10.0) << c;
        EXPECT_DOUBLE_EQ(window.capturePage()->strip(c)->xMax(), 20.0) << c;
    }
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::Close)->text(), QStringLiteral("&CLOSE"));
    window.zoomTo(12.0, 14.0);
    window.undoZoom();
    EXPECT_DOUBLE_EQ(window.capturePage()->strip(3)->xMin(), 10.0);
    window.zoomOutAll();
    EXPECT_EQ(window.session().zoom().depth(), 0);
    EXPECT_DOUBLE_EQ(window.capturePage()->strip(3)->xMax(), fullEnd);
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::Close)->text(), QStringLiteral("&Close"));

    // Prev on the first row leaves the capture as it is.
    const qint32 first = window.capture().record().recCounter;
    messages.clear();
    stepNow(window, -1);
    EXPECT_EQ(messages.texts(), QStringList{"This is the first waveform in this series."});
    EXPECT_EQ(window.capture().record().recCounter, first);
    stepNow(window, 1);
    EXPECT_EQ(window.session().position(), 1);
    EXPECT_EQ(window.capture().record().recCounter, fixture.series().at(1));
    const int last = static_cast<int>(fixture.series().size()) - 1;
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), last, "last"));
    messages.clear();
    stepNow(window, 1);
    EXPECT_EQ(messages.texts(), QStringList{"This is the last waveform in this series."});
    EXPECT_EQ(window.session().position(), last);

    // A row the query does not hold: the loader's message, no capture.
    messages.clear();
    TalWaveGraphPE missing(fixture.scratch(), fixture.settingsFile(), fixture.work());
    EXPECT_FALSE(openNow(missing, fixture.numbers(), {999999}, 0, "missing"));
    ASSERT_EQ(messages.texts().size(), 1);
    EXPECT_FALSE(messages.texts().first().isEmpty());
    EXPECT_FALSE(missing.buttons()->command(TalWaveGraphPE::ExportData)->isEnabled());
}

TEST(TalWaveGraphPE, InterharmonicViewOfTheInterharmonicCapture)
{
    WaveWindowFixture fixture;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    const int tone = fixture.periodic(64);
    ASSERT_GE(tone, 0);
    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), tone, "tone"));
    window.show();
    // Ia: the voltages of this delta capture are line to line, where the tone of each phase
    // (1.5 x 120 degrees apart) adds up to 10 / sqrt(3) percent rather than 5.
    window.clickAt(3, 1.0);
    ASSERT_TRUE(window.showInterharmonic()) << messages.texts().join(u'\n').toStdString();
    EXPECT_EQ(window.view(), 1);
    EXPECT_TRUE(window.interharmonicPage()->trace()->chart()->title().startsWith(
        QStringLiteral("Waveform for Interharmonic Analysis")));
    EXPECT_TRUE(window.interharmonicPage()->groups()->chart()->title().startsWith(
        QStringLiteral("IEC-1000-2-1[1] Interharmonic Spectrum")));
    // The tone at 1.5 times 60 Hz is 5 % of the fundamental, in the 5 Hz bin of 90 Hz.
    const QVector<double>& spectrum = window.interharmonicPage()->spectrum()->values();
    ASSERT_GT(spectrum.size(), 18);
    EXPECT_NEAR(spectrum.at(12), 100.0, 0.5);
    EXPECT_NEAR(spectrum.at(18), 5.0, 0.5);
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Interharmonic);
    // Fault 12: the caption names the window's start, the axis notes its frequency.
    EXPECT_TRUE(
        window.windowTitle().endsWith(QStringLiteral(" - Interharmonic window from 0.00 ms")))
        << window.windowTitle().toStdString();
    EXPECT_EQ(window.session().displayFrequency(), 60);

    // Command3: the five of Command2, then one button for each graph, which shows it alone.
    const QStringList captions{"&Help",
                               "&Back",
                               "&Print/Export",
                               "&Edit Graph",
                               "&Zoom Out",
                               "&Waveform",
                               "&Harmonic && Interharmonic",
                               "&IEC-1000-2-1 Interharmonic"};
    for (int i = 0; i < TalWaveGraphPE::ViewCommandCount; ++i) {
        EXPECT_EQ(window.buttons()->viewCommand(i)->text(), captions.at(i));
        EXPECT_TRUE(window.buttons()->viewCommand(i)->isVisible()) << i;
        EXPECT_EQ(window.buttons()->viewCommand(i)->objectName(),
                  QStringLiteral("Command3_%1").arg(i));
    }
    EXPECT_FALSE(window.buttons()->command(TalWaveGraphPE::Interharmonic)->isVisible());
    EXPECT_TRUE(window.interharmonicPage()->trace()->isVisible());
    EXPECT_FALSE(window.interharmonicPage()->spectrum()->isVisible());
    EXPECT_FALSE(window.interharmonicPage()->groups()->isVisible());
    window.buttons()->viewCommand(TalWaveGraphPE::ViewSpectrum)->click();
    EXPECT_FALSE(window.interharmonicPage()->trace()->isVisible());
    EXPECT_TRUE(window.interharmonicPage()->spectrum()->isVisible());
    EXPECT_FALSE(window.buttons()->viewCommand(TalWaveGraphPE::ViewSpectrum)->isEnabled());
    EXPECT_EQ(window.graphNames(),
              QStringList{window.interharmonicPage()->spectrum()->chart()->title()});
    lorvane::test::saveScreenshot(&window, QStringLiteral("waveform-interharmonic"));
    window.buttons()->viewCommand(TalWaveGraphPE::ViewGroups)->click();
    EXPECT_TRUE(window.interharmonicPage()->groups()->isVisible());
    EXPECT_FALSE(window.interharmonicPage()->spectrum()->isVisible());

    // &Edit Graph works on the graph shown, a bar graph here; &Zoom Out gives its bounds back.
    window.dialogs().setDialogRunner([](QDialog& dialog) {
        auto* extents = qobject_cast<frmSetYExtents*>(&dialog);
        if (!extents)
            return int(QDialog::Rejected);
        extents->txtMaximum()->setText(QStringLiteral("0.5"));
        extents->txtMinimum()->setText(QStringLiteral("0"));
        extents->apply();
        return int(QDialog::Accepted);
    });
    const double groupsTop = window.interharmonicPage()->groups()->yMax();
    window.buttons()->viewCommand(TalWaveGraphPE::ViewEditGraph)->click();
    EXPECT_DOUBLE_EQ(window.interharmonicPage()->groups()->yMax(), 0.5);
    window.buttons()->viewCommand(TalWaveGraphPE::ViewZoomOut)->click();
    EXPECT_DOUBLE_EQ(window.interharmonicPage()->groups()->yMax(), groupsTop);

    // Check1: In and Inputs are the toggles of buttons 9 and 10, both ways.
    ASSERT_TRUE(window.buttons()->check(TalWaveGraphPE::CheckNeutral)->isChecked());
    window.buttons()->check(TalWaveGraphPE::CheckNeutral)->setChecked(false);
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::NeutralCurrent)->text(),
              QStringLiteral("I&n On"));
    window.buttons()->command(TalWaveGraphPE::Inputs)->click();
    EXPECT_FALSE(window.buttons()->check(TalWaveGraphPE::CheckInputs)->isChecked());
    // RMS Val writes the RMS of each recorded channel on the trace: a near sine, peak / sqrt 2.
    window.buttons()->check(TalWaveGraphPE::CheckRms)->setChecked(true);
    const QStringList rms = window.interharmonicPage()->trace()->textBlock().split(u'\n');
    const WaveformChannels& channels = window.capture().channels();
    const QString iaLine = channels.labels.at(3) + QStringLiteral(" = ");
    const auto ia = std::find_if(rms.cbegin(), rms.cend(),
                                 [&](const QString& line) { return line.startsWith(iaLine); });
    ASSERT_NE(ia, rms.cend()) << rms.join(u'|').toStdString();
    float peak = 0;
    for (const float v : channels.samples.at(3))
        peak = std::max(peak, std::abs(v));
    EXPECT_NEAR(ia->mid(iaLine.size()).toDouble(), peak / std::sqrt(2.0), peak * 0.06);
    window.buttons()->check(TalWaveGraphPE::CheckRms)->setChecked(false);
    EXPECT_TRUE(window.interharmonicPage()->trace()->textBlock().isEmpty());

    window.buttons()->viewCommand(TalWaveGraphPE::ViewBack)->click();
    EXPECT_EQ(window.view(), 0);
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Global);
    EXPECT_TRUE(window.capture().isOpen());
    EXPECT_TRUE(window.capturePage()->strip(6)->isHidden())
        << "In was switched off in the interharmonic view";
    EXPECT_TRUE(window.buttons()->command(TalWaveGraphPE::Interharmonic)->isVisible());
}

TEST(TalWaveGraphPE, DetailViewCarriesTheSecondButtonSet)
{
    WindowRun run;
    auto& [fixture, messages, scope, window] = run;
    ASSERT_TRUE(
        openNow(window, fixture.numbers(), fixture.series(), fixture.periodic(128), "sine"));
    window.show();
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Global);
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::Close)->toolTip(),
              QStringLiteral("Close this waveform view"));
    EXPECT_TRUE(window.buttons()->command(TalWaveGraphPE::Next)->isVisible());
    EXPECT_FALSE(window.buttons()->viewCommand(TalWaveGraphPE::ViewBack)->isVisible());

    window.buttons()->command(TalWaveGraphPE::Details)->click();
    window.clickAt(1, 5.0);
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Detail);
    EXPECT_FALSE(window.buttons()->command(TalWaveGraphPE::Next)->isVisible());
    EXPECT_TRUE(window.buttons()->command(TalWaveGraphPE::Close)->isVisible());
    for (int i = 0; i < TalWaveGraphPE::ViewCommandCount; ++i) {
        EXPECT_EQ(window.buttons()->viewCommand(i)->isVisible(), i <= TalWaveGraphPE::ViewZoomOut)
            << i;
        EXPECT_EQ(window.buttons()->viewCommand(i)->objectName(),
                  QStringLiteral("Command2_%1").arg(i));
    }
    EXPECT_EQ(window.buttons()->viewCommand(TalWaveGraphPE::ViewBack)->toolTip(),
              QStringLiteral("Go back to global view"));
    // Fault 12: the detail view's caption was missing.
    EXPECT_TRUE(window.buttons()->caption()->isVisible());
    EXPECT_EQ(window.buttons()->caption()->text(), QStringLiteral("View Waveform"));
    EXPECT_FALSE(window.buttons()->check(TalWaveGraphPE::CheckRms)->isVisible());

    // &Edit Graph opens the y extents of the strip in focus.
    const frmSetYExtents* opened = nullptr;
    window.dialogs().setDialogRunner([&](QDialog& dialog) {
        auto* extents = qobject_cast<frmSetYExtents*>(&dialog);
        opened = extents;
        if (extents)
            extents->press(true, true);
        return int(QDialog::Accepted);
    });
    const double top = window.capturePage()->strip(1)->yMax();
    window.buttons()->viewCommand(TalWaveGraphPE::ViewEditGraph)->click();
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(window.capturePage()->strip(1)->manualY());
    EXPECT_FALSE(window.capturePage()->strip(0)->manualY());
    EXPECT_GT(window.capturePage()->strip(1)->yMax(), top);
    window.buttons()->viewCommand(TalWaveGraphPE::ViewZoomOut)->click();
    EXPECT_FALSE(window.capturePage()->strip(1)->manualY());

    window.buttons()->viewCommand(TalWaveGraphPE::ViewBack)->click();
    EXPECT_EQ(window.state(), TalWaveGraphPE::State::Global);
    EXPECT_TRUE(window.capturePage()->strip(0)->isVisible());
    EXPECT_EQ(window.buttons()->command(TalWaveGraphPE::Details)->text(),
              QStringLiteral("Waveform &Details On"));
    EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join(u'\n').toStdString();
}

TEST(TalWaveGraphPE, ProgressWindowAndTheOneBusyGuard)
{
    WaveWindowFixture fixture;
    RecordedMessages messages;
    ScopedUserMessages scope(messages);
    frmProgress progress;
    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    window.setProgressWindow(&progress);
    const int tone = fixture.periodic(64);
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), tone, "tone"));
    const QStringList opened = progress.messages();
    EXPECT_TRUE(std::any_of(opened.cbegin(), opened.cend(), [](const QString& line) {
        return line.endsWith(QStringLiteral("Reading the Waveform data file"));
    })) << opened.join(u'\n').toStdString();
    // Fault 12: the steps of setting up and drawing the graphs were never told.
    EXPECT_TRUE(opened.join(u'\n').contains(QStringLiteral("Seting Up Graph 7")));
    EXPECT_TRUE(opened.last().endsWith(QStringLiteral("Draw the graphs")));
    EXPECT_FALSE(progress.isVisible()) << "the progress window goes when the capture is shown";
    window.show();

    // The capture is read off the window thread: the window serves its events meanwhile, and
    // the cancel of the progress window stops the read with the capture shown kept.
    bool servedDuringRead = false;
    window.step(1);
    QTimer::singleShot(0, &window, [&] { servedDuringRead = window.reading(); });
    ASSERT_TRUE(window.reading());
    EXPECT_TRUE(fixture.work().busy());
    QTest::mouseClick(progress.cancelButton(), Qt::LeftButton);
    lorvane::test::readDone(window);
    EXPECT_TRUE(servedDuringRead);
    EXPECT_EQ(window.session().position(), tone);
    EXPECT_TRUE(window.capture().isOpen());
    EXPECT_FALSE(fixture.work().busy());

    // Other work of the run (a load of the log grid) holds the guard: the window starts
    // nothing of its own, and a click waits.
    {
        WorkGuard::Scope other = fixture.work().enter();
        ASSERT_TRUE(other);
        EXPECT_FALSE(window.showInterharmonic());
        stepNow(window, 1);
        EXPECT_EQ(window.session().position(), tone);
        window.clickAt(3, 1.0);
        EXPECT_FALSE(window.session().hasStatistics());
    }
    EXPECT_FALSE(fixture.work().busy());

    // The run holds the guard while it serves events: a second run is refused there.
    bool nested = true;
    QTimer::singleShot(0, &window, [&] {
        nested = window.showInterharmonic();
        EXPECT_TRUE(fixture.work().busy());
    });
    ASSERT_TRUE(window.showInterharmonic()) << messages.texts().join(u'\n').toStdString();
    EXPECT_FALSE(nested);
    EXPECT_FALSE(fixture.work().busy());
    EXPECT_TRUE(progress.messages().join(u'\n').contains(
        QStringLiteral("Drawing the interharmonic graphs")));
    window.showCapture();

    // A close that arrives while the run serves events cancels the run and closes the window
    // once it has ended, as the close of the frame does with any other work.
    bool closed = true;
    QTimer::singleShot(0, &window, [&] { closed = window.close(); });
    EXPECT_FALSE(window.showInterharmonic()) << "the cancelled run shows no result";
    EXPECT_FALSE(closed);
    EXPECT_EQ(window.view(), 0);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(fixture.work().busy());

    // A close in the middle of a read, and the end of a window whose read still runs.
    window.show();
    window.step(1);
    EXPECT_FALSE(window.close()) << "the window waits for the read";
    lorvane::test::readDone(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(fixture.work().busy());
    {
        TalWaveGraphPE ending(fixture.scratch(), fixture.settingsFile(), fixture.work());
        ASSERT_TRUE(ending.open(fixture.numbers(), fixture.series(), tone, "tone"));
    }
    EXPECT_FALSE(fixture.work().busy());
    QApplication::processEvents();
    EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join(u'\n').toStdString();
}

TEST(TalWaveGraphPE, ExportsDataPicturesAndPrints)
{
    WindowRun run;
    auto& [fixture, messages, scope, window] = run;
    ASSERT_TRUE(
        openNow(window, fixture.numbers(), fixture.series(), fixture.periodic(128), "sine"));
    window.show();

    window.buttons()->command(TalWaveGraphPE::ExportData)->click();
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    const WaveformChannels& channels = window.capture().channels();
    QStringList header{"Sample Point #"};
    for (int c = 0; c < 7; ++c)
        header << channels.labels.at(c);
    for (int i = 1; i <= 8; ++i)
        header << QStringLiteral("Input %1").arg(i);
    EXPECT_EQ(lines.first(), header.join(u'\t'));
    EXPECT_EQ(lines.size(), channels.sampleCount() + 2);
    EXPECT_EQ(messages.texts().last(),
              QStringLiteral("Data may be in OS`s Clipboard. Select "
                             "Paste in your application to see the data."));

    int chosenRow = 2;
    QString savePath;
    QStringList listed;
    window.dialogs().setDialogRunner([&](QDialog& dialog) {
        if (auto* chooser = qobject_cast<selWaveGraph_Export*>(&dialog)) {
            for (int i = 0; i < chooser->list()->count(); ++i)
                listed << chooser->list()->item(i)->text();
            chooser->list()->setCurrentRow(chosenRow);
        }
        return int(QDialog::Accepted);
    });
    window.dialogs().setSavePath([&](const QString&, const QString&) { return savePath; });
    savePath = fixture.file(QStringLiteral("vcn.png"));
    window.exportPicture();
    EXPECT_EQ(listed.first(), channels.labels.at(0));
    EXPECT_EQ(listed.last(), QStringLiteral("Inputs"));
    QImage picture(savePath);
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.size(), window.capturePage()->strip(2)->size());

    savePath = fixture.file(QStringLiteral("inputs.svg"));
    chosenRow = 7;
    window.exportPicture();
    QFile svg(savePath);
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    const QByteArray svgText = svg.readAll();
    EXPECT_TRUE(svgText.contains("<svg"));
    EXPECT_TRUE(svgText.contains("Inputs"));

    savePath = fixture.file(QStringLiteral("missing-folder/x.png"));
    window.exportPicture();
    EXPECT_TRUE(messages.texts().last().startsWith(QStringLiteral("The picture could not be")));

    const QString pdf = fixture.file(QStringLiteral("graphs.pdf"));
    window.dialogs().setPrintFile(pdf);
    window.printGraphs();
    QFile printed(pdf);
    ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
    EXPECT_TRUE(printed.read(5).startsWith("%PDF"));
    EXPECT_GT(printed.size(), 10000);
}

TEST(TalWaveGraphPE, YExtentsMoveAboutTheCentreWhenLocked)
{
    WaveWindowFixture fixture;
    TalWaveGraphPE window(fixture.scratch(), fixture.settingsFile(), fixture.work());
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), 0, "first"));
    WaveStripChart* chart = window.capturePage()->strip(0);
    frmSetYExtents extents(chart);
    EXPECT_EQ(extents.txtAdjustamount()->text(), QStringLiteral("10"));
    EXPECT_TRUE(extents.chklocked()->isChecked());
    extents.txtMaximum()->setText(QStringLiteral("200"));
    extents.txtMinimum()->setText(QStringLiteral("-200"));
    extents.show();
    lorvane::test::saveScreenshot(&extents, QStringLiteral("waveform-y-extents"));
    extents.press(true, true);
    EXPECT_TRUE(chart->manualY());
    EXPECT_DOUBLE_EQ(chart->yMax(), 210);
    EXPECT_DOUBLE_EQ(chart->yMin(), -210);
    extents.press(false, true);
    EXPECT_DOUBLE_EQ(chart->yMin(), -200);
    EXPECT_DOUBLE_EQ(chart->yMax(), 200);
    extents.chklocked()->setChecked(false);
    extents.press(true, false);
    EXPECT_DOUBLE_EQ(chart->yMax(), 190);
    EXPECT_DOUBLE_EQ(chart->yMin(), -200);
    extents.txtMaximum()->setText(QStringLiteral("abc"));
    extents.apply();
    EXPECT_DOUBLE_EQ(chart->yMax(), 190) << "a text that is no number changes nothing";
}

TEST(TalWaveGraphPE, Fault1TheCursorStandsWhereTheClickWasAt512SamplesACycle)
{
    WindowRun run;
    auto& [fixture, messages, scope, window] = run;
    ASSERT_TRUE(
        openNow(window, fixture.numbers(), fixture.series(), fixture.periodic(512), "range"));
    window.show();
    window.setMark(1, 20.0);
    window.setMark(2, 60.0);
    window.setDetailsOn(true);
    window.clickAt(0, 100.0);
    // The cursor was drawn at 108.5 ms, the step read back from the rounded axis.
    const auto cursor = std::find_if(
        window.capturePage()->strip(0)->annotations().cbegin(),
        window.capturePage()->strip(0)->annotations().cend(),
        [](const WaveMarks::Annotation& a) { return a.text == QStringLiteral("Cursor"); });
    ASSERT_NE(cursor, window.capturePage()->strip(0)->annotations().cend());
    EXPECT_NEAR(cursor->x, 100.0, 0.01);
    EXPECT_EQ(window.session().statistics().window.start, 3071);
    lorvane::test::saveScreenshot(&window, QStringLiteral("waveform-512-cursor-details"));
    window.setDetailsOn(false);
    lorvane::test::saveScreenshot(&window, QStringLiteral("waveform-512-cursor-marks"));
    // Fault: "Duration = 40.00ms" between the marks ran into their ">>"; no text of a strip
    // covers another.
    WaveStripChart* strip = window.capturePage()->strip(0);
    strip->grab();
    const QList<QRectF>& boxes = strip->annotationTextBoxes();
    EXPECT_EQ(boxes.size(), strip->annotations().size());
    for (qsizetype i = 0; i < boxes.size(); ++i)
        for (qsizetype j = i + 1; j < boxes.size(); ++j)
            EXPECT_FALSE(boxes[i].intersects(boxes[j]))
                << strip->annotations()[i].text.toStdString() << " covers "
                << strip->annotations()[j].text.toStdString();
}

TEST(TalWaveGraphPE, Fault7BackFromTheInterharmonicViewKeepsTheCaptureAsItWasLeft)
{
    WindowRun run;
    auto& [fixture, messages, scope, window] = run;
    ASSERT_TRUE(openNow(window, fixture.numbers(), fixture.series(), fixture.periodic(64), "tone"));
    window.show();
    window.setMark(1, 5.0);
    window.clickAt(3, 1.0);
    window.zoomTo(2.0, 40.0);
    window.placeInterharmonicMark(26.3);
    const QVector<float> before = window.capture().channels().samples.at(3);
    ASSERT_EQ(window.capture().record().windowStart, 100);
    ASSERT_TRUE(window.showInterharmonic()) << messages.texts().join(u'\n').toStdString();
    window.buttons()->viewCommand(TalWaveGraphPE::ViewBack)->click();
    EXPECT_EQ(window.view(), 0);
    EXPECT_TRUE(window.session().marks().isSet(1));
    EXPECT_TRUE(window.session().cursorMs().has_value());
    EXPECT_EQ(window.session().zoom().depth(), 1);
    EXPECT_DOUBLE_EQ(window.capturePage()->strip(3)->xMin(), 2.0);
    EXPECT_EQ(window.capture().record().windowStart, 100);
    EXPECT_EQ(window.capture().channels().samples.at(3), before);
}
