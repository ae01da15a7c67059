// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LoadProgress.h"
#include "WorkGuard.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QThread;

namespace lorvane {

/// Long work off the window thread, so that the window stays alive, repaints and offers its
/// cancel while a capture or a range is read. The work is a function of a `LoadProgress`: it
/// opens the databases it reads itself (a SQLite connection belongs to the thread that opened
/// it and never crosses to another), reports its text and share through the progress, and
/// stops at its next step once the cancel flag is raised, from whichever thread. What it
/// reports reaches the runner's own thread (the window's) as signals, and `Finished` is called
/// there once the work has ended, so the window takes the results in on its own thread. The
/// command line and the tests call `runHere`: the same work, on the calling thread.
class JobRunner : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<void(LoadProgress& progress)>;
    /// Called on the runner's thread once the work has ended: an empty text when it ran through
    /// or stopped at a cancel (`cancelled` tells), else what made it fail.
    using Finished = std::function<void(const QString& failure)>;

    explicit JobRunner(QObject* parent = nullptr);
    /// Asks running work to stop and waits for it: a window may close during a job; its
    /// `Finished` is not called then.
    ~JobRunner() override;

    /// Starts `work` on a thread of its own as the long work of `guard`: false, with nothing
    /// run, while the guard refuses (other work runs, this runner's included). The guard is
    /// left once `finished` has returned; a waiter of the guard (the close of the frame)
    /// raises the cancel flag of this work.
    bool start(WorkGuard& guard, Work work, Finished finished);
    bool running() const { return m_thread != nullptr; }
    /// Asks the running work to stop at its next step; safe from any thread.
    void cancel();
    /// The work that ended last was asked to stop.
    bool cancelled() const { return m_cancelled; }

    /// Runs `work` on the calling thread with `progress`; returns what `Finished` would get.
    static QString runHere(const Work& work, LoadProgress& progress);

signals:
    /// A line of progress text of the work.
    void statusChanged(const QString& text);
    /// The share done from 0 to 1; negative while the length of the work is unknown.
    void fractionChanged(double fraction);

private:
    class Relay;

    void ended();

    QThread* m_thread = nullptr;
    std::unique_ptr<Relay> m_relay;
    std::optional<WorkGuard::Scope> m_scope;
    Finished m_finished;
    QString m_failure;
    bool m_cancelled = false;
};

} // namespace lorvane
