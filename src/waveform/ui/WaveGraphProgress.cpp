// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphProgress.h"

#include "app/ui/frmProgress.h"
#include "platform/WorkGuard.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

namespace lorvane {

bool WaveGraphProgress::run(WorkGuard& work, const QString& title, bool cancellable,
                            const std::function<void()>& steps)
{
    // The steps serve the window's events: no other work starts meanwhile, and a waiter
    // raises the cancel flag watched here.
    WorkGuard::Scope scope = work.enter();
    if (!scope)
        return false;
    begin(title, cancellable);
    scope.watch(this);
    steps();
    const bool cancelled = end();
    scope.watch(nullptr);
    return !cancelled;
}

void WaveGraphProgress::begin(const QString& title, bool cancellable)
{
    clearCancel();
    if (!m_window)
        return;
    m_window->Start(title);
    // Until a step knows its share the bar only shows that work goes on.
    m_window->setFraction(std::nullopt);
    m_window->cancelButton()->setEnabled(cancellable);
    m_window->show();
}

void WaveGraphProgress::status(const QString& text)
{
    if (m_window)
        m_window->AddMessage(text);
    else
        m_status->setText(text);
    serve();
}

void WaveGraphProgress::showFraction(std::optional<double> fraction)
{
    if (m_window)
        m_window->setFraction(fraction);
}

void WaveGraphProgress::serve()
{
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (m_window && m_window->cancelPending())
        requestCancel();
}

bool WaveGraphProgress::end()
{
    m_status->clear();
    if (m_window)
        m_window->hide();
    return cancelPending();
}

} // namespace lorvane
