// SPDX-License-Identifier: GPL-3.0-or-later
#include "../ScopedEnvironment.h"
#include "../TemporaryInstallation.h"
#include "app/RunContext.h"
#include "app/StartupSequence.h"
#include "app/ui/AboutLorvane.h"
#include "app/ui/AllLogsFrm.h"
#include "app/ui/LorvaneStartupHost.h"
#include "app/ui/SysSetupFrm.h"
#include "app/ui/TalLorvane.h"
#include "gridview/ui/TalHistView.h"
#include "platform/RegistryAccess.h"
#include "platform/SqliteDatabase.h"
#include "platform/StringCatalog.h"
#include "platform/SystemFolder.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "platform/WorkGuard.h"
#include "platform/ui/SingleInstanceChannel.h"
#include "pqgraph/ui/CBEMAGraph_Ex1.h"
#include "pqgraph/ui/PqScatterCanvas.h"
#include "pqgraph/ui/PqScatterPage.h"
#include "support/TestEnvironment.h"
#include "support/TestMeters.h"
#include "support/ui/Screenshot.h"
#include "trend/ui/frmSetSelection.h"
#include "waveform/ui/TalWaveGraphPE.h"
#include "waveform/ui/WaveGraphSetup.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTimer>
#include <QtTest/QTest>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

using lorvane::LogKind;
using lorvane::RecordedMessages;
using lorvane::TalLorvane;
using lorvane::test::ScopedEnvironment;
using lorvane::test::TemporaryInstallation;

namespace {

/// Serves events until `done` holds or `timeoutMs` passed; no fixed waits.
bool waitFor(const std::function<bool()>& done, int timeoutMs = 30000)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    return done();
}

/// A temporary installation with the delivered scratch template and dictionary, a simulated
/// meter beside it, and the program started over it with a command line.
class FrameRun
{
public:
    FrameRun()
    {
        m_installation.writePathsFile();
        replaceWith(m_installation.dataFolder() + "/Resource/LorvaneTempQuery.DB",
                    lorvane::test::dataFolder() + "/Resource/LorvaneTempQuery.DB");
        replaceWith(m_installation.systemFolder() + "/QLMNameList.DB",
                    lorvane::test::programPath("QLMNameList.DB"));
        m_env.set("LORVANE_SYSTEM_DIR", m_installation.systemFolder());
        m_env.set("XDG_CONFIG_HOME", m_installation.root() + "/config");
        m_env.set("XDG_CONFIG_DIRS", m_installation.root() + "/config-system");
        m_env.unset("LORVANE_REG_SOFTWARE_INI_PATH");
        m_meter = m_installation.root() + "/Meter 1.DB";
    }

    ~FrameRun()
    {
        if (TalLorvane* frame = m_host.mainFrame())
            frame->close();
    }

    const TemporaryInstallation& installation() const { return m_installation; }
    TalLorvane* mainFrame() { return m_host.mainFrame(); }
    const QString& meterPath() const { return m_meter; }
    RecordedMessages& messages() { return m_messages; }
    lorvane::RunContext& context() { return m_context; }

    bool simulateMeter()
    {
        return lorvane::test::simulate(QStringList{"--out", m_meter} +
                                       lorvane::test::smallMeterArguments());
    }

    /// Starts the frame and lets its first activation run.
    TalLorvane* start(const QString& commandLine)
    {
        if (lorvane::StartupSequence(m_host, m_context).run(commandLine) !=
            lorvane::StartupSequence::Outcome::Running)
            return nullptr;
        TalLorvane* frame = m_host.mainFrame();
        if (!waitFor([frame] { return frame->activated(); }))
            return nullptr;
        return frame;
    }

private:
    static void replaceWith(const QString& target, const QString& source)
    {
        QFile::remove(target);
        ASSERT_TRUE(QFile::copy(source, target)) << source.toStdString();
    }

    TemporaryInstallation m_installation;
    ScopedEnvironment m_env;
    QString m_meter;
    RecordedMessages m_messages;
    lorvane::ScopedUserMessages m_scopedMessages{m_messages};
    lorvane::RunContext m_context;
    lorvane::LorvaneStartupHost m_host;
};

/// Runs `action` once, on the first event turn after a load's wait window was shown: the
/// load is running then, and the action arrives where the load serves window events.
class DuringLoad : public QObject
{
public:
    explicit DuringLoad(std::function<void()> action) : m_action(std::move(action))
    {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (m_action && event->type() == QEvent::Show &&
            watched->objectName() == QLatin1String("WaitFrm"))
            QTimer::singleShot(0, qApp, std::exchange(m_action, {}));
        return false;
    }

private:
    std::function<void()> m_action;
};

const QString snapshotCommand = QStringLiteral("LOGID:2 FRT:030424000000 LRT:030524120000 "
                                               "CHA:21017,20617 \"");

/// The frame closed in the middle of a snapshot load; returns what went wrong, empty when
/// the program waited for the load to stop and then ended cleanly.
QString closeDuringLoad()
{
    FrameRun run;
    if (!run.simulateMeter())
        return QStringLiteral("no meter");
    bool loadRunning = false;
    DuringLoad closing([&] {
        loadRunning = run.context().work.busy();
        run.mainFrame()->close();
    });
    TalLorvane* frame = run.start(snapshotCommand + run.meterPath() + u'"');
    if (!frame)
        return QStringLiteral("no frame");
    if (!loadRunning)
        return QStringLiteral("the close did not arrive during the load");
    if (!waitFor([frame] { return !frame->isVisible(); }))
        return QStringLiteral("the frame stayed open after the load");
    if (run.context().scratch)
        return QStringLiteral("the scratch database stayed open");
    return {};
}

QStringList texts(const QList<QAction*>& actions)
{
    QStringList result;
    for (const QAction* action : actions)
        result << action->text();
    return result;
}

} // namespace

TEST(FrameWindows, MenusForwardToTheSelectionWindowAndMirrorItsButtons)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);

    QStringList menus;
    for (const QAction* menu : frame->menuBar()->actions())
        menus << menu->text();
    EXPECT_EQ(menus, QStringList({"&File", "&Edit", "&Select Data", "&View Data", "&Tools",
                                  "&Windows", "&Help"}));
    EXPECT_EQ(texts(frame->selectDataActions()),
              QStringList({"Meter &1", "Meter &2", "&Data Points", "&Time Range"}));
    EXPECT_EQ(texts(frame->viewDataActions()),
              QStringList({"Database Status", "Snapshots", "Energy && Demand", "Limits", "Waveform",
                           "Power Quality", "Vex*Grid Reports", "Status Change (Inputs)",
                           "Control Output (Relays)", "PQDIF Format", "Energy Billing Module",
                           "Flicker", "System Event"}));
    frame->waveformDisplayAction()->trigger();
    auto* waveformSetup = frame->findChild<lorvane::WaveGraphSetup*>();
    ASSERT_NE(waveformSetup, nullptr);
    EXPECT_TRUE(waveformSetup->isVisible());
    waveformSetup->reject();

    // Tools > Historical Overview opens the overview in a child window of the frame.
    QAction* overview = nullptr;
    for (const QAction* menu : frame->menuBar()->actions())
        if (menu->menu())
            for (QAction* entry : menu->menu()->actions())
                if (entry->text() == QLatin1String("Historical &Overview"))
                    overview = entry;
    ASSERT_NE(overview, nullptr);
    overview->trigger();
    auto* overviewWindow = frame->findChild<lorvane::frmSetSelection*>();
    ASSERT_NE(overviewWindow, nullptr);
    EXPECT_TRUE(overviewWindow->isVisible());

    // "Meter &1" presses selection button 0, which asks for a file.
    lorvane::AllLogsFrm* selection = frame->selectionWindow();
    QList<int> asked;
    selection->chooseMeterFile = [&](int meterIndex) {
        asked << meterIndex;
        return QString();
    };
    // The view buttons never get to a modal dialog in this test.
    selection->runDataPointDialog = [] { return false; };
    selection->runTimeRangeDialog = [] { return false; };
    frame->selectDataActions()[1]->trigger();
    frame->selectDataActions()[0]->trigger();
    EXPECT_EQ(asked, QList<int>({1, 0}));

    // No meter: nothing to view.
    for (int index = 0; index < 13; ++index)
        EXPECT_EQ(frame->viewDataActions()[index]->isEnabled(),
                  selection->viewButtonEnabled(index));

    // A meter opened: the menu follows the buttons it enabled.
    ASSERT_TRUE(selection->openMeterFile(run.meterPath(), 0));
    bool anyEnabled = false;
    for (int index = 0; index < 13; ++index) {
        EXPECT_EQ(frame->viewDataActions()[index]->isEnabled(), selection->viewButtonEnabled(index))
            << index;
        anyEnabled = anyEnabled || selection->viewButtonEnabled(index);
    }
    EXPECT_TRUE(anyEnabled);
    EXPECT_EQ(frame->exportPqdifAction()->isEnabled(), selection->viewButtonEnabled(9));
    EXPECT_TRUE(lorvane::test::saveScreenshot(frame, "main-frame-menus"));

    // "Database Status" shows the grid child with the status view; &Back and "Cl&ose All"
    // return to the selection window.
    frame->viewDataActions()[0]->trigger();
    EXPECT_TRUE(frame->gridSubWindow()->isVisible());
    EXPECT_EQ(frame->mdiArea()->activeSubWindow(), frame->gridSubWindow());
    EXPECT_EQ(frame->gridWindow()->logKind(), LogKind::DatabaseStatus);
    emit frame->gridWindow()->backRequested();
    EXPECT_FALSE(frame->gridSubWindow()->isVisible());
    EXPECT_EQ(frame->mdiArea()->activeSubWindow()->widget(), selection);
    frame->viewDataActions()[0]->trigger();
    frame->closeAllChildren();
    EXPECT_FALSE(frame->gridSubWindow()->isVisible());
    EXPECT_TRUE(selection->isVisible());

    // No guide installed in this installation: the help says so.
    run.messages().clear();
    frame->showHelp("Contents");
    EXPECT_EQ(run.messages().texts(),
              QStringList({"Unable to display Help Contents. There is no Help associated with "
                           "this program."}));
}

TEST(FrameWindows, CommandLineOpensTheMeterWithItsRangeChannelsAndView)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start("LOGID:2 FRT:030424000000 LRT:030524120000 CHA:21017,20617,abc "
                                  "\"" +
                                  run.meterPath() + "\"");
    ASSERT_NE(frame, nullptr);
    lorvane::AllLogsFrm* selection = frame->selectionWindow();
    ASSERT_TRUE(selection->meters().device(0).used)
        << run.messages().texts().join('\n').toStdString();
    EXPECT_EQ(selection->timeSelection().option(), lorvane::TimeSelection::Between);
    EXPECT_EQ(selection->timeSelection().startTime(), QDateTime(QDate(2024, 3, 4), QTime(0, 0)));
    EXPECT_EQ(selection->timeSelection().endTime(), QDateTime(QDate(2024, 3, 5), QTime(12, 0)));
    EXPECT_TRUE(selection->dataPoints().valid());
    EXPECT_EQ(selection->dataPoints().usedIds(), QList<qint32>({21017, 20617}));
    // LOGID 2 is the Snapshots button: the grid shows log kind 3.
    EXPECT_TRUE(frame->gridSubWindow()->isVisible());
    EXPECT_EQ(frame->gridWindow()->logKind(), LogKind::Snapshots);
}

TEST(FrameWindows, ClosingTheFrameDuringALoadWaitsForTheLoadToStopAndEndsCleanly)
{
    // The close freed the scratch database under the running load: SIGSEGV. In a process of
    // its own, so that a crash is seen as a signal.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const QString failure = closeDuringLoad();
            std::fprintf(stderr, "%s\n", qPrintable(failure));
            std::exit(failure.isEmpty() ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST(FrameWindows, ViewCommandsDuringALoadAreGreyAndRefused)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    // "Database Status" pressed while snapshots loaded left "[Database Status]" over them.
    bool menuEnabled = true;
    DuringLoad pressing([&] {
        TalLorvane* frame = run.mainFrame();
        menuEnabled = frame->viewDataActions()[0]->isEnabled();
        frame->viewDataActions()[0]->trigger();
        frame->selectionWindow()->Command2_Click(0);
    });
    TalLorvane* frame = run.start(snapshotCommand + run.meterPath() + u'"');
    ASSERT_NE(frame, nullptr);
    EXPECT_FALSE(menuEnabled);
    EXPECT_EQ(frame->gridWindow()->logKind(), LogKind::Snapshots);
    EXPECT_FALSE(frame->gridWindow()->windowTitle().contains("Database Status"))
        << frame->gridWindow()->windowTitle().toStdString();
    EXPECT_TRUE(frame->viewDataActions()[0]->isEnabled()) << "the menus come back afterwards";
}

TEST(FrameWindows, SystemPropertiesApplyAtOnceToTheSelectionAndTheGrid)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);
    lorvane::AllLogsFrm* selection = frame->selectionWindow();
    ASSERT_EQ(selection->meters().maxDevices(), 2);

    // OK and Apply reached the grids and the selection only after a restart.
    frame->showSystemProperties();
    auto* dialog = frame->findChild<lorvane::SysSetupFrm*>();
    ASSERT_NE(dialog, nullptr);
    dialog->maxDevicesEdit()->setText("1");
    dialog->dataFormatBox()->setCurrentText("0.000");
    ASSERT_TRUE(dialog->applyClicked());
    dialog->reject();
    EXPECT_EQ(selection->meters().maxDevices(), 1);

    frame->applyCommandLine(snapshotCommand + run.meterPath() + u'"');
    const QList<lorvane::GridTable> grids = frame->gridWindow()->session().result().grids;
    ASSERT_FALSE(grids.isEmpty());
    ASSERT_FALSE(grids.first().rows.isEmpty()) << run.messages().texts().join('\n').toStdString();
    // The last column holds a value of the second data point, in the chosen format.
    const QString value = grids.first().rows.first().last();
    EXPECT_TRUE(QRegularExpression(R"(^-?\d+\.\d{3}$)").match(value).hasMatch())
        << value.toStdString();
}

TEST(FrameWindows, ClosingFromTheGridAsksAndARowNumberGoesToTheStatusBar)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start("LOGID:2 FRT:030424000000 LRT:030524120000 CHA:21017,20617 \"" +
                                  run.meterPath() + "\"");
    ASSERT_NE(frame, nullptr);
    lorvane::TalHistView* grid = frame->gridWindow();
    ASSERT_TRUE(frame->gridSubWindow()->isVisible());
    ASSERT_EQ(grid->logKind(), LogKind::Snapshots)
        << run.messages().texts().join('\n').toStdString();

    // A chosen snapshot row tells its number in the frame's status bar.
    QTableView* rows = grid->grid(0);
    const int count = int(grid->session().result().grids.first().rows.size());
    ASSERT_GT(count, 0);
    rows->setCurrentIndex(rows->model()->index(rows->model()->rowCount() - 1, 0));
    EXPECT_EQ(frame->statusText(0), QString("Record %1, %1").arg(count));

    // No keeps the program and its scratch database.
    const QStringList question{"Are you sure you want to exit the software?"};
    run.messages().clear();
    run.messages().setAnswer(false);
    EXPECT_FALSE(frame->close());
    EXPECT_TRUE(frame->isVisible());
    EXPECT_NE(run.context().scratch, nullptr);
    EXPECT_EQ(run.messages().texts(), question);

    // With the selection window in front nothing is asked.
    grid->command(lorvane::TalHistView::BackCommand)->click();
    ASSERT_FALSE(frame->gridSubWindow()->isVisible());
    run.messages().clear();
    EXPECT_TRUE(frame->close());
    EXPECT_TRUE(run.messages().texts().isEmpty());
    EXPECT_EQ(run.context().scratch, nullptr);
}

TEST(FrameWindows, YesToTheGridsQuestionEndsTheProgram)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start("LOGID:2 FRT:030424000000 LRT:030524120000 CHA:21017,20617 \"" +
                                  run.meterPath() + "\"");
    ASSERT_NE(frame, nullptr);
    ASSERT_TRUE(frame->gridSubWindow()->isVisible());
    run.messages().clear();
    run.messages().setAnswer(true);
    EXPECT_TRUE(frame->close());
    EXPECT_EQ(run.messages().texts(), QStringList({"Are you sure you want to exit the software?"}));
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(run.context().scratch, nullptr);
}

TEST(FrameWindows, AWaveformRowOpensItsCaptureInAWindowOfItsOwn)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    // LOGID 4 is the Waveform button.
    TalLorvane* frame =
        run.start("LOGID:4 FRT:030424000000 LRT:030624000000 \"" + run.meterPath() + "\"");
    ASSERT_NE(frame, nullptr);
    lorvane::TalHistView* grid = frame->gridWindow();
    ASSERT_EQ(grid->logKind(), LogKind::Waveform)
        << run.messages().texts().join('\n').toStdString();
    QAbstractItemModel* rows = grid->grid(0)->model();
    ASSERT_GT(rows->rowCount(), 0);

    // &Graph without a chosen row says so; with one it opens the capture.
    const int before = int(frame->mdiArea()->subWindowList().size());
    grid->grid(0)->setCurrentIndex(QModelIndex());
    run.messages().clear();
    grid->command(lorvane::TalHistView::GraphCommand)->click();
    EXPECT_EQ(run.messages().texts(), QStringList({"Please select a waveform to graph."}));
    EXPECT_EQ(int(frame->mdiArea()->subWindowList().size()), before);

    grid->grid(0)->setCurrentIndex(rows->index(rows->rowCount() - 1, 0));
    {
        // While other work runs the window's load is refused and no empty window stays.
        lorvane::WorkGuard::Scope other = run.context().work.enter();
        ASSERT_TRUE(other);
        EXPECT_EQ(frame->openGraph(grid->session().graph(0).selection), nullptr);
        EXPECT_EQ(int(frame->mdiArea()->subWindowList().size()), before);
    }
    grid->command(lorvane::TalHistView::GraphCommand)->click();
    ASSERT_EQ(int(frame->mdiArea()->subWindowList().size()), before + 1);
    QMdiSubWindow* child = frame->mdiArea()->activeSubWindow();
    ASSERT_NE(child, nullptr);
    auto* waveform = qobject_cast<lorvane::TalWaveGraphPE*>(child->widget());
    ASSERT_NE(waveform, nullptr);
    // The capture is read off the window thread; the window stands meanwhile.
    EXPECT_TRUE(QTest::qWaitFor([waveform] { return !waveform->reading(); }, 30000));
    EXPECT_TRUE(waveform->windowTitle().contains("#")) << waveform->windowTitle().toStdString();
    EXPECT_EQ(child->geometry(), frame->mdiArea()->viewport()->rect());
    EXPECT_TRUE(lorvane::test::saveScreenshot(frame, "main-frame-waveform"));

    // Closing the capture's window removes it; the grid stays.
    child->close();
    QApplication::processEvents();
    EXPECT_EQ(int(frame->mdiArea()->subWindowList().size()), before);
}

TEST(FrameWindows, PqGraphOpensFromTheGridAndItsEventsCaptureInTheWaveformWindow)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    // LOGID 5 is the Power Quality button.
    TalLorvane* frame =
        run.start("LOGID:5 FRT:030424000000 LRT:030624000000 \"" + run.meterPath() + "\"");
    ASSERT_NE(frame, nullptr);
    lorvane::TalHistView* grid = frame->gridWindow();
    ASSERT_EQ(grid->logKind(), LogKind::PowerQuality);
    const int before = int(frame->mdiArea()->subWindowList().size());
    grid->command(lorvane::TalHistView::GraphCommand)->click();
    ASSERT_EQ(int(frame->mdiArea()->subWindowList().size()), before + 1);
    auto* pq =
        qobject_cast<lorvane::CBEMAGraph_Ex1*>(frame->mdiArea()->activeSubWindow()->widget());
    ASSERT_NE(pq, nullptr);
    ASSERT_GT(lorvane::PqEvents::count(pq->session().events()), 0);

    // A double click on an event with a capture opens that capture in a window of its own.
    lorvane::PqScatterCanvas* canvas = pq->scatterPage()->canvas();
    bool opened = false;
    for (int c = 0; c < lorvane::PqEvents::channelCount && !opened; ++c) {
        for (const lorvane::PqEvent& event : pq->session().events()[c]) {
            if (!pq->session().captureOf(event))
                continue;
            QTest::mouseDClick(
                canvas->viewport(), Qt::LeftButton, {},
                canvas->positionOf({std::log10(event.durationSeconds), event.magnitudePercent})
                    .toPoint());
            opened = true;
            break;
        }
    }
    ASSERT_TRUE(opened);
    ASSERT_EQ(int(frame->mdiArea()->subWindowList().size()), before + 2);
    auto* waveform =
        qobject_cast<lorvane::TalWaveGraphPE*>(frame->mdiArea()->activeSubWindow()->widget());
    ASSERT_NE(waveform, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([waveform] { return !waveform->reading(); }, 30000));

    // &Cancel closes the graph's child window.
    QMdiSubWindow* pqChild = qobject_cast<QMdiSubWindow*>(pq->parentWidget());
    ASSERT_NE(pqChild, nullptr);
    frame->mdiArea()->setActiveSubWindow(pqChild);
    for (QPushButton* button : pq->findChildren<QPushButton*>())
        if (button->text() == QStringLiteral("&Cancel"))
            button->click();
    QApplication::processEvents();
    EXPECT_EQ(int(frame->mdiArea()->subWindowList().size()), before + 1);
}

TEST(FrameWindows, OpenLogRequestsAreTakenOneAtATime)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);

    EXPECT_FALSE(frame->acceptCommand(QString()));
    EXPECT_TRUE(frame->acceptCommand("OPENLOG " + run.meterPath()));
    // A second command while the first is pending is refused.
    EXPECT_FALSE(frame->acceptCommand("OPENLOG /elsewhere/Other.DB"));
    ASSERT_TRUE(waitFor([frame] { return !frame->commandBusy(); }));
    EXPECT_TRUE(frame->selectionWindow()->meters().device(0).used);

    run.messages().clear();
    EXPECT_TRUE(frame->acceptCommand("OPENLOG /no/such/Meter.DB"));
    ASSERT_TRUE(waitFor([frame] { return !frame->commandBusy(); }));
    EXPECT_EQ(run.messages().texts(), QStringList({"Cannot find /no/such/Meter.DB"}));

    // An unknown verb does nothing and says nothing.
    run.messages().clear();
    EXPECT_TRUE(frame->acceptCommand("CLOSELOG " + run.meterPath()));
    ASSERT_TRUE(waitFor([frame] { return !frame->commandBusy(); }));
    EXPECT_TRUE(run.messages().texts().isEmpty());
}

TEST(FrameWindows, ASecondCopyHandsItsWholeCommandLineToTheRunningFrame)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);
    lorvane::SingleInstanceChannel channel(
        lorvane::SingleInstanceChannel::defaultName(lorvane::SystemFolder::path()));
    ASSERT_TRUE(channel.listen());
    frame->attachChannel(channel);
    const QStringList scratchBefore = run.installation().scratchFiles();

    // The copy runs beside the meter and names it relative to its own folder.
    const auto startCopy = [&](QProcess& copy) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        copy.setProcessEnvironment(environment);
        copy.setWorkingDirectory(QFileInfo(run.meterPath()).absolutePath());
        copy.start(lorvane::test::programPath("lorvane"),
                   {"LOGID:2", "FRT:030424000000", "LRT:030524120000", "CHA:21017,20617",
                    QFileInfo(run.meterPath()).fileName()});
        return waitFor([&] { return copy.state() == QProcess::NotRunning; });
    };

    // A copy that had a command pending refused the request, and the sender said so.
    {
        lorvane::WorkGuard::Scope work = run.context().work.enter();
        ASSERT_TRUE(frame->acceptCommand("OPENLOG /held/while/work/runs.DB"));
        QProcess refused;
        ASSERT_TRUE(startCopy(refused)) << "the refused copy did not end";
        EXPECT_EQ(refused.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(refused.exitCode(), 3);
        EXPECT_TRUE(refused.readAllStandardError().contains("refused"));
    }
    ASSERT_TRUE(waitFor([frame] { return !frame->commandBusy(); }));
    run.messages().clear();

    // Only "OPENLOG {path}" was handed over: the range, channels and view were lost.
    QProcess second;
    ASSERT_TRUE(startCopy(second)) << "the second copy did not end";
    EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second.exitCode(), 0) << second.readAllStandardError().toStdString();
    ASSERT_TRUE(waitFor([frame] {
        return !frame->commandBusy() && frame->selectionWindow()->meters().device(0).used;
    }));
    lorvane::AllLogsFrm* selection = frame->selectionWindow();
    EXPECT_EQ(selection->timeSelection().option(), lorvane::TimeSelection::Between);
    EXPECT_EQ(selection->timeSelection().startTime(), QDateTime(QDate(2024, 3, 4), QTime(0, 0)));
    EXPECT_EQ(selection->dataPoints().usedIds(), QList<qint32>({21017, 20617}));
    EXPECT_EQ(frame->gridWindow()->logKind(), LogKind::Snapshots)
        << run.messages().texts().join('\n').toStdString();
    // The second copy started nothing of its own.
    EXPECT_EQ(run.installation().scratchFiles(), scratchBefore);

    // A third listener on the same name is refused while this one serves.
    lorvane::SingleInstanceChannel another(channel.name());
    EXPECT_FALSE(another.listen());
}

TEST(FrameWindows, ATranslationThatNamesItsFontShowsEveryWindowInIt)
{
    FrameRun run;
    const QString translation = run.installation().root() + "/Lorvane_el.DB";
    {
        lorvane::SqliteDatabase db(translation, lorvane::SqliteDatabase::Mode::Create);
        db.executeScript("CREATE TABLE DBID (pFontName TEXT, pFileVer TEXT, pFontCharSet INTEGER, "
                         "pIsUnicode INTEGER, LastRun TEXT);"
                         "INSERT INTO DBID VALUES ('DejaVu Serif', '1.0', 161, -1, NULL);"
                         "CREATE TABLE MAIN (IndexValue INTEGER, TextValue TEXT, "
                         "TranslatedValue TEXT);");
    }
    ASSERT_TRUE(lorvane::RegistryAccess().writeUserSetting("QLMLanguages", "StringTable",
                                                           "LookupFile", translation));
    const QFont before = QApplication::font();
    // The font the translation names was never applied: windows kept the default font.
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);
    const QString frameFont = frame->font().families().value(0);
    const QString selectionFont = frame->selectionWindow()->font().families().value(0);
    frame->close();
    QApplication::setFont(before);
    lorvane::installStringCatalog(nullptr);
    EXPECT_EQ(frameFont, "DejaVu Serif");
    EXPECT_EQ(selectionFont, "DejaVu Serif");
}

TEST(FrameWindows, AMissingScratchTemplateIsNamedAtTheFirstOpenedMeter)
{
    FrameRun run;
    ASSERT_TRUE(run.simulateMeter());
    const QString templatePath = run.installation().dataFolder() + "/Resource/LorvaneTempQuery.DB";
    ASSERT_TRUE(QFile::remove(templatePath));
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);
    run.messages().clear();
    // A good meter was reported as missing under an empty path.
    EXPECT_FALSE(frame->selectionWindow()->openMeterFile(run.meterPath(), 0));
    ASSERT_EQ(run.messages().texts().size(), 1);
    const QString message = run.messages().texts().first();
    EXPECT_TRUE(message.startsWith("The scratch template LorvaneTempQuery.DB is missing.\n"
                                   "Template: "))
        << message.toStdString();
    EXPECT_TRUE(message.contains(QDir::toNativeSeparators(templatePath))) << message.toStdString();
    EXPECT_FALSE(message.contains(run.meterPath())) << "the meter is not at fault";
}

TEST(FrameWindows, AboutShowsTheRunsFiles)
{
    FrameRun run;
    TalLorvane* frame = run.start(QString());
    ASSERT_NE(frame, nullptr);
    frame->showAbout();
    auto* about = frame->findChild<lorvane::AboutLorvane*>();
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->windowTitle(), "About QLM Lorvane");
    const QStringList lines = about->lines();
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], run.context().title);
    EXPECT_TRUE(lines[1].endsWith(run.context().scratch->path()));
    EXPECT_TRUE(lines[4].startsWith("Temp Query File Size: "));
    EXPECT_TRUE(lines[4].endsWith("Bytes"));
    EXPECT_TRUE(lines[6].startsWith("LorvaneTempQuery.DB Info: Version 8.6,  "));
    EXPECT_TRUE(lorvane::test::saveScreenshot(about, "about"));
    about->accept();
}
