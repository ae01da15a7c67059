// SPDX-License-Identifier: GPL-3.0-or-later
// The one guard of long work: a second piece is refused while one runs, a waiter asks the
// running work to stop and is called once it has ended, and the busy listeners hear both ends.
#include "platform/WorkGuard.h"

#include "platform/LoadProgress.h"

#include <QList>
#include <QStringList>
#include <gtest/gtest.h>

using namespace lorvane;

TEST(WorkGuard, OnePieceAtATimeAndWaitersRunAfterTheEnd)
{
    WorkGuard guard;
    QList<bool> heard;
    guard.onBusyChanged([&](bool busy) { heard << busy; });
    QStringList order;
    SilentProgress progress;
    {
        WorkGuard::Scope work = guard.enter();
        ASSERT_TRUE(work);
        work.watch(&progress);
        EXPECT_TRUE(guard.busy());
        EXPECT_FALSE(guard.enter()) << "a second piece of work while one runs";
        guard.stopThen([&] { order << "after the work"; });
        EXPECT_TRUE(progress.cancelRequested()) << "the waiter asked the work to stop";
        EXPECT_TRUE(order.isEmpty());
        order << "work ends";
    }
    EXPECT_EQ(order, QStringList({"work ends", "after the work"}));
    EXPECT_FALSE(guard.busy());
    EXPECT_EQ(heard, QList<bool>({true, false}));

    // With no work running a waiter is called at once; a close asked before the work had its
    // watcher still reaches it.
    guard.stopThen([&] { order << "at once"; });
    EXPECT_EQ(order.last(), "at once");
    WorkGuard::Scope work = guard.enter();
    guard.stopThen([] {});
    SilentProgress late;
    work.watch(&late);
    EXPECT_TRUE(late.cancelPending());
}

TEST(LoadProgress, SharesOfAWholeStayWithinTheirStretch)
{
    class Whole : public LoadProgress
    {
    public:
        void status(const QString&) override {}
        QList<double> shown;

    protected:
        void showFraction(std::optional<double> fraction) override
        {
            shown << fraction.value_or(-1);
        }
    };
    Whole whole;
    ProgressShare step(whole, 0.5, 0.75);
    step.advance(1, 2);
    step.setFraction(std::nullopt);
    step.advance(7, 2);
    whole.advance(1, 0);
    EXPECT_EQ(whole.shown, QList<double>({0.625, 0.5, 0.75, -1}));
    whole.requestCancel();
    EXPECT_TRUE(step.cancelRequested()) << "the whole's cancel reaches each stretch";
}
