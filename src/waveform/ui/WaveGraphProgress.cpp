// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphProgress.h"

#include "app/ui/frmProgress.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

namespace lorvane {

void WaveGraphProgress::begin(const QString& title, bool cancellable)
{
    if (!m_window)
        return;
    m_window->Start(title);
    // The steps have no count: the bar only shows that work goes on.
    m_window->setProgressMax(0);
    m_window->cancelButton()->setEnabled(cancellable);
    m_window->show();
}

void WaveGraphProgress::step(const QString& text)
{
    if (m_window)
        m_window->AddMessage(text);
    else
        m_status->setText(text);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool WaveGraphProgress::end()
{
    m_status->clear();
    if (!m_window)
        return false;
    m_window->hide();
    return m_window->Cancelled();
}

} // namespace lorvane
