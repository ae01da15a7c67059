// SPDX-License-Identifier: GPL-3.0-or-later
#include "TalLorvane.h"

#include "AboutLorvane.h"
#include "AllLogsFrm.h"
#include "SysSetupFrm.h"
#include "WaitFrm.h"
#include "app/AboutInfo.h"
#include "app/HelpTopics.h"
#include "app/PrinterCheck.h"
#include "app/RunContext.h"
#include "app/StartCommand.h"
#include "frmProgress.h"
#include "graph/ui/GraphWindows.h"
#include "gridview/ui/TalHistView.h"
#include "platform/RegistryAccess.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "platform/ui/SingleInstanceChannel.h"
#include "powergraph/ui/PGraphMaker.h"
#include "pqgraph/ui/PqGraphMaker.h"
#include "relaylogic/ui/RelayLogicMaker.h"
#include "store/TempQueryDatabase.h"
#include "trend/ui/TrendGraphMaker.h"
#include "waveform/ui/WaveGraphMaker.h"
#include "waveform/ui/WaveGraphSetup.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPointer>
#include <QPrinterInfo>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace lorvane {

namespace {

/// How long a request waits before the timer runs it: it leaves the channel's handler first.
constexpr int requestDelayMs = 50;
/// Index of "PQDIF Format" among the view buttons, which "Export to &PQDIF" presses too.
constexpr int pqdifButton = 9;

struct MenuText
{
    const char* id;
    const char* english;
};

constexpr MenuText selectDataTexts[] = {{"100020", "Meter &1"},
                                        {"100021", "Meter &2"},
                                        {"100022", "&Data Points"},
                                        {"100023", "&Time Range"}};

constexpr MenuText viewDataTexts[] = {{"100030", "Database Status"},
                                      {"100031", "Snapshots"},
                                      {"100032", "Energy && Demand"},
                                      {"100033", "Limits"},
                                      {"100034", "Waveform"},
                                      {"100035", "Power Quality"},
                                      {"100036", "Vex*Grid Reports"},
                                      {"100037", "Status Change (Inputs)"},
                                      {"100038", "Control Output (Relays)"},
                                      {"100039", "PQDIF Format"},
                                      {"100040", "Energy Billing Module"},
                                      {"100041", "Flicker"},
                                      {"100042", "System Event"}};

QString text(const MenuText& entry)
{
    return userText(entry.id, entry.english);
}

/// The default printer's state in the words the check looks for.
QString printerStatus(const QPrinterInfo& printer)
{
    switch (printer.state()) {
    case QPrinter::Idle:
        return QStringLiteral("Ready");
    case QPrinter::Active:
        return QStringLiteral("Ready, printing");
    case QPrinter::Aborted:
        return QStringLiteral("Aborted");
    case QPrinter::Error:
        break;
    }
    return QStringLiteral("Error");
}

} // namespace

TalLorvane::TalLorvane(RunContext& context, QWidget* parent)
    : QMainWindow(parent), m_context(context)
{
    setObjectName(QStringLiteral("TalLorvane"));
    setWindowTitle(m_context.title);
    m_mdiArea = new QMdiArea(this);
    setCentralWidget(m_mdiArea);
    m_mdiArea->viewport()->installEventFilter(this);

    m_ddeTimer = new QTimer(this);
    m_ddeTimer->setSingleShot(true);
    m_ddeTimer->setInterval(requestDelayMs);
    connect(m_ddeTimer, &QTimer::timeout, this, &TalLorvane::DDETimer_Timer);

    createChildren();
    buildMenus();
    buildStatusBar();
    mirrorViewButtons();

    resize(1024, 720);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());

    // Files of crashed runs go now; a running copy's own file is left alone.
    if (!m_context.paths.scratchFolder.isEmpty())
        m_removedScratchFiles = TempQueryDatabase::removeStaleFiles(m_context.paths.scratchFolder);
}

TalLorvane::~TalLorvane() = default;

void TalLorvane::createChildren()
{
    m_selection = new AllLogsFrm(m_context);
    m_selectionWindow = m_mdiArea->addSubWindow(m_selection);
    // Both children are made once and reused; closing them must not destroy them.
    m_selectionWindow->setAttribute(Qt::WA_DeleteOnClose, false);

    m_grid = new TalHistView(m_context);
    m_gridWindow = m_mdiArea->addSubWindow(m_grid);
    m_gridWindow->setAttribute(Qt::WA_DeleteOnClose, false);
    m_gridWindow->hide();
    const auto waitWindow = [this]() -> std::unique_ptr<LoadProgress> {
        auto wait = std::make_unique<WaitFrm>(m_context, this);
        wait->show();
        return wait;
    };
    m_grid->setProgressFactory(waitWindow);
    m_selection->progressFactory = waitWindow;
    // While long work runs the commands that would start more work are grey.
    m_context.work.onBusyChanged([frame = QPointer<TalLorvane>(this)](bool busy) {
        if (frame)
            frame->enableCommands(!busy);
    });

    m_progress = new frmProgress(this);
    m_progress->hide();
    // The graph windows make themselves known for their kinds; &Graph of the grid opens them
    // by kind.
    const auto help = [frame = QPointer<TalLorvane>(this)](const QString& topic) {
        if (frame)
            frame->showHelp(topic);
    };
    WaveGraphMaker::add(m_context, m_progress, help);
    // The trend first: the power graph's item choice offers the maker it finds for its kind.
    TrendGraphMaker::add(m_context);
    PGraphMaker::add(m_context, help);
    PqGraphMaker::add(m_context, help,
                      [frame = QPointer<TalLorvane>(this)](const GraphSelection& selection) {
                          if (frame)
                              frame->openGraph(selection);
                      });
    RelayLogicMaker::add(m_context, help);

    connect(m_selection, &AllLogsFrm::viewRequested, this,
            [this](const ViewDispatch::Request& request) {
                showGrid();
                m_grid->showRequest(request, m_selection->topQueryBuffer());
            });
    connect(m_selection, &AllLogsFrm::viewButtonsChanged, this, &TalLorvane::mirrorViewButtons);
    connect(m_selection, &AllLogsFrm::statusTextChanged, this,
            [this](const QString& first, const QString& second) {
                m_statusPanes[0]->setText(first);
                m_statusPanes[1]->setText(second);
            });
    connect(m_selection, &AllLogsFrm::programEndRequested, this, &QWidget::close);
    connect(m_selection, &AllLogsFrm::helpRequested, this, &TalLorvane::showHelp);
    connect(m_grid, &TalHistView::backRequested, this, &TalLorvane::backToSelection);
    connect(m_grid, &TalHistView::helpRequested, this, &TalLorvane::showHelp);
    connect(m_grid, &TalHistView::statusTextChanged, this,
            [this](const QString& text) { m_statusPanes[0]->setText(text); });
    connect(m_grid, &TalHistView::graphRequested, this, &TalLorvane::openGraph);
}

QWidget* TalLorvane::openGraph(const GraphSelection& selection)
{
    // The window's load enters the run's busy guard itself; a window that does not load has
    // shown its message, and no empty window stays behind.
    QWidget* window = GraphWindows::open(selection, nullptr);
    if (window)
        showChild(window);
    return window;
}

void TalLorvane::showChild(QWidget* window)
{
    QMdiSubWindow* child = m_mdiArea->addSubWindow(window);
    child->setAttribute(Qt::WA_DeleteOnClose);
    child->setGeometry(m_mdiArea->viewport()->rect());
    child->show();
    m_mdiArea->setActiveSubWindow(child);
}

void TalLorvane::buildMenus()
{
    QMenu* file = menuBar()->addMenu(userText("100000", "&File"));
    file->addAction(userText("100001", "&Exit"), this, &QWidget::close);
    file->addSeparator();

    QMenu* edit = menuBar()->addMenu(userText("100002", "&Edit"));
    m_systemProperties = edit->addAction(userText("100003", "&System Properties"), this,
                                         &TalLorvane::showSystemProperties);
    m_waveformDisplay = edit->addAction(userText("100004", "&Waveform Display"), this, [this] {
        auto* setup = new WaveGraphSetup(m_context.paths.settingsFile, this);
        setup->setAttribute(Qt::WA_DeleteOnClose);
        setup->open();
    });

    QMenu* select = menuBar()->addMenu(userText("100005", "&Select Data"));
    for (int index = 0; index < static_cast<int>(std::size(selectDataTexts)); ++index)
        m_selectActions << select->addAction(text(selectDataTexts[index]), this,
                                             [this, index] { m_selection->Command3_Click(index); });

    QMenu* view = menuBar()->addMenu(userText("100006", "&View Data"));
    for (int index = 0; index < static_cast<int>(std::size(viewDataTexts)); ++index)
        m_viewActions << view->addAction(text(viewDataTexts[index]), this,
                                         [this, index] { m_selection->Command2_Click(index); });

    QMenu* tools = menuBar()->addMenu(userText("100007", "&Tools"));
    m_exportPqdif = tools->addAction(userText("100008", "Export to &PQDIF"), this,
                                     [this] { m_selection->Command2_Click(pqdifButton); });
    tools->addAction(userText("100060", "Historical &Overview"), this, [this] {
        // Over meter 1 of the selection when one is open; the window names its own file else.
        const QList<LogFileEntry> meters = m_selection->session().meters().usedFiles();
        showChild(TrendGraphMaker::overview(m_context,
                                            meters.isEmpty() ? QString() : meters.first().dbPath,
                                            [this](QWidget* trend) { showChild(trend); }));
    });

    QMenu* windows = menuBar()->addMenu(userText("100009", "&Windows"));
    windows->addAction(userText("100010", "&Cascade"), m_mdiArea, &QMdiArea::cascadeSubWindows);
    windows->addAction(userText("100011", "&Tile"), m_mdiArea, &QMdiArea::tileSubWindows);
    windows->addAction(userText("100012", "&Arrange Icons"), this, &TalLorvane::arrangeIcons);
    windows->addAction(userText("100013", "Cl&ose All"), this, &TalLorvane::closeAllChildren);
    QMenu* list = windows->addMenu(userText("100014", "Current &Windows"));
    connect(list, &QMenu::aboutToShow, this, [this, list] { fillWindowList(list); });

    QMenu* help = menuBar()->addMenu(userText("100015", "&Help"));
    help->addAction(userText("100016", "&Contents"), this,
                    [this] { showHelp(QStringLiteral("Contents")); });
    help->addAction(userText("100017", "&Search"), this,
                    [this] { showHelp(QStringLiteral("Search")); });
    help->addAction(userText("100018", "&About"), this, &TalLorvane::showAbout);
}

void TalLorvane::buildStatusBar()
{
    for (int pane = 0; pane < 2; ++pane) {
        auto* label = new QLabel(statusBar());
        label->setMinimumWidth(240);
        statusBar()->addWidget(label, pane == 0 ? 0 : 1);
        m_statusPanes << label;
    }
}

QString TalLorvane::statusText(int pane) const
{
    return pane >= 0 && pane < m_statusPanes.size() ? m_statusPanes[pane]->text() : QString();
}

void TalLorvane::mirrorViewButtons()
{
    const bool idle = !m_context.work.busy();
    for (int index = 0; index < m_viewActions.size(); ++index)
        m_viewActions[index]->setEnabled(idle && m_selection->viewButtonEnabled(index));
    m_exportPqdif->setEnabled(idle && m_selection->viewButtonEnabled(pqdifButton));
}

void TalLorvane::enableCommands(bool enabled)
{
    for (QAction* action : m_selectActions)
        action->setEnabled(enabled);
    m_systemProperties->setEnabled(enabled);
    m_selection->setEnabled(enabled);
    mirrorViewButtons();
}

void TalLorvane::showSelectionWindow()
{
    show();
    m_selectionWindow->show();
    m_mdiArea->setActiveSubWindow(m_selectionWindow);
    fillWithChildren();
    if (!m_activationQueued) {
        m_activationQueued = true;
        // Start-up is finished by then, the technician flag included.
        QTimer::singleShot(0, this, &TalLorvane::firstActivation);
    }
}

void TalLorvane::firstActivation()
{
    if (m_activated)
        return;
    m_activated = true;
    if (!m_context.technicianMode)
        checkPrinter();
    const StartCommand command =
        StartCommand::fromCommandLine(m_context.commandLine, QDate::currentDate());
    if (!command.path().isEmpty())
        runCommand(command);
    else if (m_context.settings.autoLoadDBs)
        m_selection->autoLoadNewestFile();
}

void TalLorvane::checkPrinter()
{
    const QString message = PrinterCheck::message(
        static_cast<int>(QPrinterInfo::availablePrinterNames().size()),
        QPrinterInfo::defaultPrinterName(), printerStatus(QPrinterInfo::defaultPrinter()));
    if (!message.isEmpty())
        userMessages().show(message, UserMessages::Icon::Warning);
}

void TalLorvane::applyCommandLine(const QString& text)
{
    runCommand(StartCommand::fromCommandLine(text, QDate::currentDate()));
}

bool TalLorvane::runCommand(const StartCommand& command)
{
    if (command.path().isEmpty() || !openAsMeterOne(command.path()))
        return false;
    if (!m_selection->meters().device(0).used)
        return false;
    const int button = command.applyToSelection(
        m_selection->timeSelection(), m_selection->dataPoints(), m_selection->topQueryBuffer());
    m_selection->DoReFresh();
    if (button >= 0)
        m_selection->Command2_Click(button);
    return true;
}

bool TalLorvane::openAsMeterOne(const QString& path)
{
    if (!QFileInfo::exists(path)) {
        userMessages().show(userText("100050", "Cannot find") + u' ' + path,
                            UserMessages::Icon::Warning);
        return false;
    }
    backToSelection();
    return m_selection->openMeterFile(path, 0);
}

void TalLorvane::attachChannel(SingleInstanceChannel& channel)
{
    connect(&channel, &SingleInstanceChannel::commandReceived, this,
            [this](const QString& command, bool& accepted) { accepted = acceptCommand(command); });
}

bool TalLorvane::acceptCommand(const QString& command)
{
    if (command.isEmpty() || commandBusy())
        return false;
    m_pendingCommand = command;
    m_ddeTimer->start();
    return true;
}

void TalLorvane::DDETimer_Timer()
{
    m_ddeTimer->stop();
    if (m_busy)
        return;
    // A request that arrives during long work runs after it: the timer asks again.
    if (m_context.work.busy()) {
        m_ddeTimer->start();
        return;
    }
    m_busy = true;
    const bool opened =
        runCommand(StartCommand::fromRequest(m_pendingCommand, QDate::currentDate()));
    if (opened) {
        if (isMinimized())
            showNormal();
        raise();
        activateWindow();
    } else {
        setFocus();
    }
    m_busy = false;
    m_pendingCommand.clear();
}

void TalLorvane::showGrid()
{
    m_gridWindow->showMaximized();
    m_mdiArea->setActiveSubWindow(m_gridWindow);
    fillWithChildren();
}

void TalLorvane::backToSelection()
{
    m_gridWindow->hide();
    m_selectionWindow->show();
    m_mdiArea->setActiveSubWindow(m_selectionWindow);
}

void TalLorvane::closeAllChildren()
{
    for (QMdiSubWindow* child : m_mdiArea->subWindowList()) {
        if (child != m_selectionWindow)
            child->close();
    }
    m_mdiArea->setActiveSubWindow(m_selectionWindow);
}

void TalLorvane::arrangeIcons()
{
    // Minimised children line up along the bottom edge, left to right.
    int left = 0;
    const int bottom = m_mdiArea->viewport()->height();
    for (QMdiSubWindow* child : m_mdiArea->subWindowList()) {
        if (!child->isMinimized())
            continue;
        child->move(left, bottom - child->height());
        left += child->width();
    }
}

void TalLorvane::fillWindowList(QMenu* menu)
{
    menu->clear();
    for (QMdiSubWindow* child : m_mdiArea->subWindowList()) {
        if (!child->isVisible())
            continue;
        QAction* entry = menu->addAction(child->windowTitle(), this, [this, child] {
            child->show();
            m_mdiArea->setActiveSubWindow(child);
        });
        entry->setCheckable(true);
        entry->setChecked(child == m_mdiArea->activeSubWindow());
    }
}

void TalLorvane::showHelp(const QString& topic)
{
    const QString page = HelpTopics(HelpTopics::folderOf(m_context.paths.progDataPath)).page(topic);
    if (page.isEmpty() || !QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        userMessages().show(HelpTopics::missingHelpMessage(), UserMessages::Icon::Information);
}

void TalLorvane::showAbout()
{
    auto* about = new AboutLorvane(AboutInfo::gather(m_context), this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

void TalLorvane::showSystemProperties()
{
    auto* dialog = new SysSetupFrm(
        m_context.settings, m_context.paths.settingsFile,
        [](const QString& application, const QString& section, const QString& key,
           const QString& defaultValue) {
            return RegistryAccess().readUserSetting(application, section, key, defaultValue);
        },
        this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setCurveLibrary(m_context.paths.progDataPath + QStringLiteral("/curves"));
    connect(dialog, &SysSetupFrm::helpRequested, this, &TalLorvane::showHelp);
    connect(dialog, &SysSetupFrm::settingsApplied, m_selection, &AllLogsFrm::settingsApplied);
    dialog->open();
}

void TalLorvane::fillWithChildren()
{
    const QRect inner = m_mdiArea->viewport()->rect();
    for (QMdiSubWindow* child : m_mdiArea->subWindowList())
        child->setGeometry(inner);
}

bool TalLorvane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_mdiArea->viewport() && event->type() == QEvent::Resize)
        fillWithChildren();
    return QMainWindow::eventFilter(watched, event);
}

void TalLorvane::closeEvent(QCloseEvent* event)
{
    // Long work holds the scratch database: the close waits until the work has seen the
    // cancel and ended, and then runs again.
    if (m_context.work.busy()) {
        event->ignore();
        if (!m_closeWaiting) {
            m_closeWaiting = true;
            m_context.work.stopThen([frame = QPointer<TalLorvane>(this)] {
                if (frame)
                    QTimer::singleShot(0, frame, &QWidget::close);
            });
        }
        return;
    }
    const bool confirmed = std::exchange(m_closeWaiting, false);
    // Leaving from the grid may be a slip of &Back: the grid window asks first. While the grid
    // is shown it covers the selection window, so the front child is the top visible one of
    // the others (a graph window opened over the grid is in front of it).
    QMdiSubWindow* front = nullptr;
    for (QMdiSubWindow* child : m_mdiArea->subWindowList(QMdiArea::StackingOrder)) {
        if (child != m_selectionWindow && child->isVisible())
            front = child;
    }
    const bool fromGrid = front != nullptr && front == m_gridWindow;
    if (fromGrid && !confirmed && !m_grid->confirmExit()) {
        event->ignore();
        return;
    }
    m_context.shutDown();
    event->accept();
}

} // namespace lorvane
