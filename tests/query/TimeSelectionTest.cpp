// SPDX-License-Identifier: GPL-3.0-or-later
// The time range rule: accepted intervals, Between's swap, the dates of each option at a
// given moment, the labels and the data's own limits.
#include "query/selection/TimeSelection.h"

#include "query/selection/TopQueryBuffer.h"
#include "store/WallClock.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

const QDateTime now(QDate(2024, 3, 20), QTime(14, 37, 20));

} // namespace

TEST(TimeSelection, IntervalsAndBetween)
{
    TimeSelection t;
    TopQueryBuffer buffer;
    EXPECT_FALSE(t.defined());
    EXPECT_EQ(t.acceptPrevious(TimeSelection::Days, QStringLiteral("366"), buffer),
              QStringLiteral("Invalid time range value."));
    EXPECT_FALSE(t.acceptPrevious(TimeSelection::Days, QStringLiteral("0"), buffer).isEmpty());
    EXPECT_FALSE(t.acceptPrevious(TimeSelection::Days, QStringLiteral("x"), buffer).isEmpty());
    EXPECT_FALSE(t.defined()) << "a refused value leaves the selection as it was";

    buffer.setRow(1, {3, 1, {}, {}, 0});
    EXPECT_TRUE(t.acceptPrevious(TimeSelection::Days, QStringLiteral("365"), buffer).isEmpty());
    EXPECT_FALSE(buffer.holds(1)) << "a new range clears the buffer";
    EXPECT_TRUE(t.roundsSeconds());

    const QDateTime a(QDate(2024, 3, 5), QTime(8, 0));
    const QDateTime b(QDate(2024, 3, 1), QTime(9, 30));
    t.acceptBetween(a, b, buffer);
    EXPECT_EQ(t.startTime(), b);
    EXPECT_EQ(t.endTime(), a);
    EXPECT_FALSE(t.roundsSeconds());
    EXPECT_EQ(t.bounds(now).start, b) << "Between keeps its bounds";
    const auto labels = t.labels(t.bounds(now), QStringLiteral("yyyy-MM-dd HH:mm"));
    EXPECT_EQ(labels.first, QStringLiteral("2024-03-01 09:30"));
    EXPECT_EQ(labels.second, QStringLiteral("to 2024-03-05 08:00"));
}

TEST(TimeSelection, OptionsTurnIntoDatesFromNow)
{
    TimeSelection t;
    TopQueryBuffer buffer;
    t.acceptPrevious(TimeSelection::Hours, QStringLiteral("1"), buffer);
    auto b = t.bounds(now);
    EXPECT_EQ(b.start, WallClock::at(QDate(2024, 3, 20), QTime(13, 37, 0)));
    EXPECT_EQ(b.end, WallClock::at(QDate(2024, 3, 20), QTime(14, 37, 0)));
    const auto labels = t.labels(b, QStringLiteral("HH:mm"));
    EXPECT_EQ(labels.first, QStringLiteral("Start Time 13:37"));
    EXPECT_EQ(labels.second, QStringLiteral("previous 1 hour(s), 14:37"));

    struct Case
    {
        int option;
        int n;
        QDate start;
    };
    for (const Case& c : {Case{TimeSelection::Days, 1, QDate(2024, 3, 20)},
                          Case{TimeSelection::Weeks, 1, QDate(2024, 3, 14)},
                          Case{TimeSelection::Months, 1, QDate(2024, 2, 21)},
                          Case{TimeSelection::Years, 2, QDate(2022, 3, 21)}}) {
        t.acceptPrevious(c.option, QString::number(c.n), buffer);
        b = t.bounds(now);
        EXPECT_EQ(b.start, QDateTime(c.start, QTime(0, 0))) << c.option;
        EXPECT_EQ(b.end, WallClock::at(QDate(2024, 3, 20), QTime(23, 59))) << c.option;
    }
}
