// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

namespace lorvane {

class LoadProgress;

/// The one place that knows whether long work runs. Long work either runs on the window thread
/// and serves window events at its steps, or runs off it through a `JobRunner` while the
/// window's own loop goes on; either way a click, a menu command, a request of a later copy
/// or the close of the frame can arrive in the middle of it. Every window that starts such
/// work enters it here: a second piece of work is refused while one runs, and whoever must
/// wait for the end (the close of the frame) asks the running work to stop and is called
/// back once it has.
class WorkGuard
{
public:
    /// Held for as long as one piece of work runs; an empty scope means the work was refused.
    class Scope
    {
    public:
        Scope() = default;
        Scope(Scope&& other) noexcept;
        Scope& operator=(Scope&&) = delete;
        Scope(const Scope&) = delete;
        ~Scope();
        /// The work may run.
        explicit operator bool() const { return m_guard != nullptr; }
        /// The progress of the work, whose cancel flag a waiter raises; null for none.
        void watch(LoadProgress* progress);

    private:
        friend class WorkGuard;
        explicit Scope(WorkGuard* guard) : m_guard(guard) {}
        WorkGuard* m_guard = nullptr;
    };

    /// Starts a piece of work; an empty scope while another piece runs.
    [[nodiscard]] Scope enter();
    /// Work runs now.
    bool busy() const { return m_busy; }
    /// Asks the running work to stop and calls `then` once it has ended; with no work
    /// running, calls it at once.
    void stopThen(std::function<void()> then);
    /// Called with true when work starts and false when it ends (menus go grey meanwhile).
    void onBusyChanged(std::function<void(bool)> listener);

private:
    void leave();

    bool m_busy = false;
    LoadProgress* m_progress = nullptr;
    std::vector<std::function<void()>> m_afterWork;
    std::vector<std::function<void(bool)>> m_listeners;
};

} // namespace lorvane
