// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

class QMdiArea;
class QMdiSubWindow;

namespace lorvane {

class AllLogsFrm;
struct RunContext;

/// The one top-level window: a frame of child windows with a status bar. Its load clears the
/// scratch files that earlier runs left behind; its close is the only way the program ends,
/// and it closes the dictionary and the scratch database and deletes the scratch file.
class TalLorvane : public QMainWindow
{
    Q_OBJECT

public:
    /// Loads the frame over the run context filled by start-up; the context must outlive it.
    explicit TalLorvane(RunContext& context, QWidget* parent = nullptr);

    /// Shows the frame with the selection window inside it.
    void showSelectionWindow();

    QMdiArea* mdiArea() const { return m_mdiArea; }
    AllLogsFrm* selectionWindow() const { return m_selection; }
    /// Stale scratch files deleted at load.
    int removedScratchFiles() const { return m_removedScratchFiles; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Child views always fill the frame's inner area.
    void fillWithChildren();

    RunContext& m_context;
    QMdiArea* m_mdiArea = nullptr;
    AllLogsFrm* m_selection = nullptr;
    QMdiSubWindow* m_selectionWindow = nullptr;
    int m_removedScratchFiles = 0;
};

} // namespace lorvane
