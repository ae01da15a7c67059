// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "powergraph/AutoShow.h"
#include "powergraph/PGraphModule.h"
#include "powergraph/PGraphSession.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>

namespace lorvane {

class PGraphCanvas;
class PGraphPanel;

/// The circular or XY power graph window: the picture, the entry fields and commands beside
/// it, the menus, and Auto Show on `Timer1`. The records stay in the window from opening to
/// closing; the rules live in PGraphSession and AutoShow.
class PGraph : public QMainWindow, private AutoShowClock
{
    Q_OBJECT

public:
    /// `settingsFile` holds section `PGraph` and the colour and comment defaults.
    explicit PGraph(QString settingsFile, QWidget* parent = nullptr);
    ~PGraph() override;

    /// Shows `items` (at most six) as a chart of `kind` with the stored view and colours.
    void ShowPowerGraph(QList<PGraphItem> items, PGraphView::Kind kind);
    /// The view's entries checked and drawn (`DrawCircle` or `DrawXY`); false, with the
    /// message shown and the last picture kept, when an entry is refused.
    bool redraw();
    /// "Print": refused during Auto Show and without records; otherwise the picture goes to
    /// the print target, in black unless "Color Printout" is set.
    void print();
    /// Where a print goes: by default the print dialog with its preview.
    void setPrintTarget(std::function<bool(QWidget* picture)> target);
    /// "Export Data": the records as CSV into `path`; false after telling why.
    bool exportData(const QString& path);
    /// "Copy": a picture of the graph on the clipboard, with its message.
    void copyPicture();

    const PGraphSession* session() const { return m_session.get(); }
    PGraphCanvas* canvas() const { return m_canvas; }
    PGraphPanel* panel() const { return m_panel; }
    const QTimer& timer1() const { return m_timer1; }
    /// The text under the menus while a print is prepared ("Updating chart. Please wait").
    QString waitText() const;

signals:
    void helpRequested(const QString& topic);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void start(int intervalMs) override;
    void stop() override;
    void buildMenus();
    void connectPanel();
    void step(bool forward);
    void showView();
    void applyDefaults();
    void selectColors();
    void userLabels();
    /// Runs `work` and shows any exception through UserMessages: no command lets one out.
    void guarded(const std::function<void()>& work);

    QString m_settingsFile;
    PowerGraphDefaults m_defaults;
    std::unique_ptr<PGraphSession> m_session;
    PGraphCanvas* m_canvas = nullptr;
    PGraphPanel* m_panel = nullptr;
    QTimer m_timer1;
    AutoShow m_autoShow;
    std::function<bool(QWidget*)> m_printTarget;
};

} // namespace lorvane
