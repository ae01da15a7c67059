// SPDX-License-Identifier: GPL-3.0-or-later
#include "TalLorvane.h"

#include "AllLogsFrm.h"
#include "app/RunContext.h"
#include "store/TempQueryDatabase.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QStatusBar>

namespace lorvane {

TalLorvane::TalLorvane(RunContext& context, QWidget* parent)
    : QMainWindow(parent), m_context(context)
{
    setObjectName(QStringLiteral("TalLorvane"));
    setWindowTitle(m_context.title);
    m_mdiArea = new QMdiArea(this);
    setCentralWidget(m_mdiArea);
    m_mdiArea->viewport()->installEventFilter(this);
    statusBar();

    m_selection = new AllLogsFrm(m_context);
    m_selectionWindow = m_mdiArea->addSubWindow(m_selection);
    // The selection window is made once and reused; closing it must not destroy it.
    m_selectionWindow->setAttribute(Qt::WA_DeleteOnClose, false);

    resize(1024, 720);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());

    // Files of crashed runs go now; a running copy's own file is left alone.
    if (!m_context.paths.scratchFolder.isEmpty())
        m_removedScratchFiles = TempQueryDatabase::removeStaleFiles(m_context.paths.scratchFolder);
}

void TalLorvane::showSelectionWindow()
{
    show();
    m_selectionWindow->show();
    m_mdiArea->setActiveSubWindow(m_selectionWindow);
    fillWithChildren();
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
    m_context.shutDown();
    event->accept();
}

} // namespace lorvane
