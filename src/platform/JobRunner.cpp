// SPDX-License-Identifier: GPL-3.0-or-later
#include "JobRunner.h"

#include "UserText.h"

#include <QThread>
#include <exception>

namespace lorvane {

/// The progress the work sees on its thread: each report is posted to the runner's thread,
/// and nothing is served here (the window's events are served by its own loop).
class JobRunner::Relay : public LoadProgress
{
public:
    explicit Relay(JobRunner* runner) : m_runner(runner) {}

    void status(const QString& text) override
    {
        // Posted events die with the runner: a report that arrives after it is gone is dropped.
        QMetaObject::invokeMethod(
            m_runner, [runner = m_runner, text] { emit runner->statusChanged(text); },
            Qt::QueuedConnection);
    }

protected:
    void showFraction(std::optional<double> fraction) override
    {
        const double share = fraction.value_or(-1);
        QMetaObject::invokeMethod(
            m_runner, [runner = m_runner, share] { emit runner->fractionChanged(share); },
            Qt::QueuedConnection);
    }

private:
    JobRunner* m_runner;
};

JobRunner::JobRunner(QObject* parent) : QObject(parent)
{
}

JobRunner::~JobRunner()
{
    if (!m_thread)
        return;
    m_relay->requestCancel();
    m_thread->wait();
    delete m_thread;
}

QString JobRunner::runHere(const Work& work, LoadProgress& progress)
{
    // The boundary of the work: nothing it throws may end the thread (or the program).
    try {
        work(progress);
        return {};
    } catch (const std::exception& e) {
        return QString::fromUtf8(e.what());
    } catch (...) {
        return userText("506010", "The work stopped on an unexpected error.");
    }
}

bool JobRunner::start(WorkGuard& guard, Work work, Finished finished)
{
    if (m_thread)
        return false;
    WorkGuard::Scope scope = guard.enter();
    if (!scope)
        return false;
    m_scope.emplace(std::move(scope));
    m_relay = std::make_unique<Relay>(this);
    m_scope->watch(m_relay.get());
    m_finished = std::move(finished);
    m_failure.clear();
    m_cancelled = false;
    m_thread =
        QThread::create([this, work = std::move(work)] { m_failure = runHere(work, *m_relay); });
    // Emitted on the work's thread, received on this one: the queued call comes after the
    // reports the work posted before it ended.
    connect(m_thread, &QThread::finished, this, &JobRunner::ended);
    m_thread->start();
    return true;
}

void JobRunner::cancel()
{
    if (m_thread)
        m_relay->requestCancel();
}

void JobRunner::ended()
{
    m_thread->wait();
    delete m_thread;
    m_thread = nullptr;
    m_cancelled = m_relay->cancelPending();
    const Finished finished = std::move(m_finished);
    m_finished = nullptr;
    if (finished)
        finished(m_failure);
    // Left after the results are in: a waiter (the close of the frame) comes after them.
    m_scope.reset();
}

} // namespace lorvane
