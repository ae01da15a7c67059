// SPDX-License-Identifier: GPL-3.0-or-later
// Long work off the window thread: a cancel from another thread stops it half-way, its reports
// and its results arrive on the runner's thread, a waiter of the guard stops it, and the end
// of the runner (a window closed) in the middle of the work is safe.
#include "platform/JobRunner.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

using namespace lorvane;

namespace {

constexpr int stepCount = 2000;

/// Steps of a millisecond each until done or cancelled; the number of steps taken is the work's
/// result, which the work's thread alone writes.
JobRunner::Work countingWork(std::atomic<int>& steps)
{
    return [&steps](LoadProgress& progress) {
        progress.status(QStringLiteral("counting"));
        for (int i = 1; i <= stepCount && !progress.cancelRequested(); ++i) {
            QThread::usleep(500);
            steps = i;
            progress.advance(i, stepCount);
        }
    };
}

class JobRunnerTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        if (!QCoreApplication::instance())
            new QCoreApplication(argc, argv);
    }

    /// Serves this thread's events until `done` or five seconds passed.
    static bool serveUntil(const std::function<bool()>& done)
    {
        QEventLoop loop;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
            if (done())
                loop.quit();
        });
        QTimer::singleShot(5000, &loop, &QEventLoop::quit);
        poll.start(1);
        loop.exec();
        return done();
    }

    WorkGuard guard;
    std::atomic<int> steps{0};
};

} // namespace

TEST_F(JobRunnerTest, ACancelFromAnotherThreadStopsTheWorkAndTheResultsArriveOnThisThread)
{
    JobRunner runner;
    QList<double> fractions;
    QStringList texts;
    bool reportsOnThisThread = true;
    QObject::connect(&runner, &JobRunner::fractionChanged, [&](double fraction) {
        reportsOnThisThread &= QThread::currentThread() == qApp->thread();
        fractions << fraction;
    });
    QObject::connect(&runner, &JobRunner::statusChanged, [&](const QString& t) { texts << t; });
    std::optional<int> delivered;
    bool finishedOnThisThread = false;
    ASSERT_TRUE(runner.start(guard, countingWork(steps), [&](const QString& failure) {
        EXPECT_TRUE(failure.isEmpty());
        finishedOnThisThread = QThread::currentThread() == qApp->thread();
        delivered = steps.load();
        EXPECT_TRUE(guard.busy()) << "the results are taken in before the guard is left";
    }));
    EXPECT_TRUE(guard.busy());
    EXPECT_FALSE(runner.start(guard, countingWork(steps), {})) << "one piece of work at a time";

    std::thread canceller([&] {
        while (steps < 100)
            std::this_thread::yield();
        runner.cancel();
    });
    ASSERT_TRUE(serveUntil([&] { return delivered.has_value(); }));
    canceller.join();
    EXPECT_TRUE(finishedOnThisThread);
    EXPECT_TRUE(runner.cancelled());
    EXPECT_GE(*delivered, 100);
    EXPECT_LT(*delivered, stepCount) << "the work stopped half-way";
    EXPECT_FALSE(guard.busy());
    EXPECT_FALSE(runner.running());
    EXPECT_TRUE(reportsOnThisThread);
    EXPECT_EQ(texts, QStringList{QStringLiteral("counting")});
    ASSERT_FALSE(fractions.isEmpty());
    EXPECT_LT(fractions.last(), 1.0);
    EXPECT_DOUBLE_EQ(fractions.last(), double(*delivered) / stepCount);
}

TEST_F(JobRunnerTest, AWaiterOfTheGuardStopsTheWorkAndAFailureIsTold)
{
    JobRunner runner;
    QStringList order;
    ASSERT_TRUE(runner.start(guard, countingWork(steps),
                             [&](const QString&) { order << QStringLiteral("results"); }));
    guard.stopThen([&] { order << QStringLiteral("waiter"); });
    ASSERT_TRUE(serveUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, QStringList({"results", "waiter"}));
    EXPECT_LT(steps, stepCount);

    // What the work throws is its failure, on the thread and on the calling thread alike.
    const JobRunner::Work failing = [](LoadProgress&) {
        throw std::runtime_error("the meter file is damaged");
    };
    std::optional<QString> told;
    ASSERT_TRUE(runner.start(guard, failing, [&](const QString& failure) { told = failure; }));
    ASSERT_TRUE(serveUntil([&] { return told.has_value(); }));
    EXPECT_EQ(*told, QStringLiteral("the meter file is damaged"));
    SilentProgress here;
    EXPECT_EQ(JobRunner::runHere(failing, here), *told);
    EXPECT_TRUE(JobRunner::runHere(countingWork(steps), here).isEmpty());
    EXPECT_EQ(steps, stepCount) << "the same work, run through on the calling thread";
}

TEST_F(JobRunnerTest, ClosingDuringTheWorkStopsItAndDropsItsResults)
{
    bool finished = false;
    {
        JobRunner runner;
        ASSERT_TRUE(
            runner.start(guard, countingWork(steps), [&](const QString&) { finished = true; }));
        while (steps < 20)
            QThread::usleep(100);
    }
    EXPECT_LT(steps, stepCount);
    QCoreApplication::processEvents();
    EXPECT_FALSE(finished) << "reports and results of a closed window are dropped";
    EXPECT_FALSE(guard.busy());
}
