// SPDX-License-Identifier: GPL-3.0-or-later
#include "WorkGuard.h"

#include "LoadProgress.h"

namespace lorvane {

WorkGuard::Scope::Scope(Scope&& other) noexcept : m_guard(other.m_guard)
{
    other.m_guard = nullptr;
}

WorkGuard::Scope::~Scope()
{
    if (m_guard)
        m_guard->leave();
}

void WorkGuard::Scope::watch(LoadProgress* progress)
{
    if (!m_guard)
        return;
    m_guard->m_progress = progress;
    // A close asked for before the watcher existed still reaches the work.
    if (progress && !m_guard->m_afterWork.empty())
        progress->requestCancel();
}

WorkGuard::Scope WorkGuard::enter()
{
    if (m_busy)
        return Scope();
    m_busy = true;
    for (const auto& listener : m_listeners)
        listener(true);
    return Scope(this);
}

void WorkGuard::stopThen(std::function<void()> then)
{
    if (!m_busy) {
        then();
        return;
    }
    if (m_progress)
        m_progress->requestCancel();
    m_afterWork.push_back(std::move(then));
}

void WorkGuard::onBusyChanged(std::function<void(bool)> listener)
{
    m_listeners.push_back(std::move(listener));
}

void WorkGuard::leave()
{
    m_busy = false;
    m_progress = nullptr;
    for (const auto& listener : m_listeners)
        listener(false);
    // Taken out first: a waiter may start new work or ask to wait again.
    std::vector<std::function<void()>> waiting;
    waiting.swap(m_afterWork);
    for (const auto& then : waiting)
        then();
}

} // namespace lorvane
