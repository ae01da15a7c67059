// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/TrendSession.h"
#include "waveform/ui/WaveGraphProgress.h"

#include <QColor>
#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QMenu;
class QTabWidget;

namespace lorvane {

class SqliteDatabase;
class TrendAxisBar;
class TrendCapturePanel;
class TrendCommandBar;
class TrendTab;
class WorkGuard;

/// The trend graph window: the loaded sets in the tab "Main Graph" and any number of "MSec
/// View" tabs, each a Preview above a Viewport. The rules live in its `TrendSession`; the
/// window holds the menus, buttons, panel and boxes, passes each press to the session and
/// shows its answer. Every press is caught at the window's edge and its fault shown.
class frmGraphView : public QWidget
{
    Q_OBJECT

public:
    /// What the colour boxes ask: a colour or nothing (cancelled).
    using ColourChooser = std::function<std::optional<QColor>(const QColor&, const QString&)>;

    frmGraphView(WorkGuard& work, SqliteDatabase* dictionary, const QString& graphSettingsFile,
                 QWidget* parent = nullptr);

    /// `ShowGraph`: loads the request with progress and draws it. False, with the reason
    /// shown ("No Data Input", "No Points Loaded.", a fault), when nothing is drawn.
    bool showGraph(const TrendRequest& request);

    TrendSession& session() { return m_session; }
    QTabWidget* tabs() const { return m_tabs; }
    TrendTab* tab(int index) const;
    TrendCommandBar* commandBar() const { return m_commands; }
    TrendCapturePanel* capturePanel() const { return m_capture; }
    TrendAxisBar* axisBar() const { return m_axisBar; }
    QAction* menuAction(const QString& name) const;
    void setColourChooser(ColourChooser chooser) { m_chooseColour = std::move(chooser); }

    /// `CmdSetRange`: the Viewport over [from, to].
    void setRange(const QDateTime& from, const QDateTime& to);
    /// `IDM_FILE_DEL`: asks, then closes the current tab (never the main one).
    void closeCurrentView();
    /// The printed page of the current tab (the caller owns it).
    QWidget* makePrintPage() const;

private:
    void buildMenus();
    void connectParts();
    /// Runs a press; any fault is shown, never thrown on.
    void guarded(const std::function<void()>& press);
    void showMessage(const QString& text);
    /// Rebuilds the tabs from the session and redraws the current one.
    void regraph();
    void showExtents();
    void chooseRange();
    void editAxis(TrendAxis axis);
    void chooseColour(int which);
    void fillAxisMenu();

    TrendSession m_session;
    WorkGuard& m_work;
    SqliteDatabase* m_dictionary;
    TrendCommandBar* m_commands;
    QTabWidget* m_tabs;
    TrendCapturePanel* m_capture;
    TrendAxisBar* m_axisBar;
    QLabel* m_status;
    QMenu* m_axisMenu = nullptr;
    WaveGraphProgress m_progress;
    ColourChooser m_chooseColour;
};

} // namespace lorvane
