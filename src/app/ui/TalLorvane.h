// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMainWindow>

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTimer;

namespace lorvane {

class AllLogsFrm;
class SingleInstanceChannel;
class StartCommand;
class TalHistView;
struct GraphSelection;
struct QueryNumbers;
class frmProgress;
struct RunContext;

/// The one top-level window: a frame of child windows with the menus, a status bar and the
/// request channel of later copies. Its menus forward to the buttons of the selection window;
/// its load clears the scratch files that earlier runs left behind; its close is the only way
/// the program ends, and it closes the dictionary and the scratch database and deletes the
/// scratch file.
class TalLorvane : public QMainWindow
{
    Q_OBJECT

public:
    /// Loads the frame over the run context filled by start-up; the context must outlive it.
    explicit TalLorvane(RunContext& context, QWidget* parent = nullptr);
    ~TalLorvane() override;

    /// Shows the frame with the selection window inside it; the first time, the start command
    /// and the printer check follow as soon as the event loop runs.
    void showSelectionWindow();

    QMdiArea* mdiArea() const { return m_mdiArea; }
    AllLogsFrm* selectionWindow() const { return m_selection; }
    TalHistView* gridWindow() const { return m_grid; }
    QMdiSubWindow* gridSubWindow() const { return m_gridWindow; }
    /// The conversion progress window of the run, hidden until a conversion shows it.
    frmProgress* progressWindow() const { return m_progress; }
    /// Stale scratch files deleted at load.
    int removedScratchFiles() const { return m_removedScratchFiles; }
    /// The first activation (printer check, start command) has run.
    bool activated() const { return m_activated; }

    /// The entries of "&Select Data" (0 to 3) and "&View Data" (0 to 12), by index.
    const QList<QAction*>& selectDataActions() const { return m_selectActions; }
    const QList<QAction*>& viewDataActions() const { return m_viewActions; }
    /// "Export to &PQDIF" of "&Tools".
    QAction* exportPqdifAction() const { return m_exportPqdif; }
    /// "&Waveform Display" of "&Edit": the waveform display settings.
    QAction* waveformDisplayAction() const { return m_waveformDisplay; }
    /// The texts of the two status panes.
    QString statusText(int pane) const;

    /// Listens to later copies on `channel` (kept by reference).
    void attachChannel(SingleInstanceChannel& channel);
    /// An incoming command: refused (false) when empty or while another is pending or
    /// running; else kept for the request timer.
    bool acceptCommand(const QString& command);
    /// The request timer's tick: runs the pending command, then brings the frame to the front
    /// when it opened a log.
    void DDETimer_Timer();
    /// A command is pending or running.
    bool commandBusy() const { return m_busy || !m_pendingCommand.isEmpty(); }
    /// Runs a start command: opens its database as meter 1, sets its time range and channels
    /// and presses the button of its view.
    void applyCommandLine(const QString& text);
    /// Runs `command` (a start command or a request of another copy); true when its database
    /// was opened as meter 1.
    bool runCommand(const StartCommand& command);

    /// Opens the graph window of the selection's kind in a child window of its own; null when
    /// the kind has none or it refused to open (it has shown why).
    QWidget* openGraph(const GraphSelection& selection);
    /// A window as a child of the frame, filling it and active.
    void showChild(QWidget* window);
    /// Opens the user guide at `topic`; without the page it says that there is no help.
    void showHelp(const QString& topic);
    /// Opens "About QLM Lorvane".
    void showAbout();
    /// Opens "System Properties".
    void showSystemProperties();
    /// "Cl&ose All": closes every child window but the selection window.
    void closeAllChildren();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenus();
    void buildStatusBar();
    void createChildren();
    void firstActivation();
    void checkPrinter();
    void mirrorViewButtons();
    /// The commands that start work: grey while long work runs.
    void enableCommands(bool enabled);
    void showGrid();
    void backToSelection();
    void fillWindowList(QMenu* menu);
    void arrangeIcons();
    /// Opens `path` as meter 1 as a manual selection does; "Cannot find" when it is missing.
    bool openAsMeterOne(const QString& path);
    /// Child views always fill the frame's inner area.
    void fillWithChildren();

    RunContext& m_context;
    QMdiArea* m_mdiArea = nullptr;
    AllLogsFrm* m_selection = nullptr;
    QMdiSubWindow* m_selectionWindow = nullptr;
    TalHistView* m_grid = nullptr;
    QMdiSubWindow* m_gridWindow = nullptr;
    frmProgress* m_progress = nullptr;
    QList<QAction*> m_selectActions;
    QList<QAction*> m_viewActions;
    QAction* m_exportPqdif = nullptr;
    QAction* m_waveformDisplay = nullptr;
    QAction* m_systemProperties = nullptr;
    QList<QLabel*> m_statusPanes;
    QTimer* m_ddeTimer = nullptr;
    QString m_pendingCommand;
    bool m_busy = false;
    bool m_activated = false;
    bool m_activationQueued = false;
    /// A close came during long work and runs once the work has ended.
    bool m_closeWaiting = false;
    int m_removedScratchFiles = 0;
};

} // namespace lorvane
