// SPDX-License-Identifier: GPL-3.0-or-later
// The voltage events of a test period from a PQ log built here: the class bounds (1 and
// 180 000 ms, [PQ%] exactly 1), the condition and channel filters and the day rows read.
#include "en50160/VoltageEvents.h"

#include "platform/LoadProgress.h"
#include "store/LogKind.h"
#include "store/MeterSchema.h"
#include "store/TableLayout.h"
#include "store/WallClock.h"
#include "support/MeterFileBuilder.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::MeterFileBuilder;
using T = VoltageEvent::Type;

namespace {

struct Record
{
    const char* name;
    double duration;
    double percent;
    int condition;
    const char* channel;
    std::optional<T> expected;
};

const Record records[] = {
    {"dip of exactly 180000 ms", 180000, 0.5, 2, "Van", T::SIV},
    {"dip of 180001 ms", 180001, 0.5, 2, "Vbn", T::LIV},
    {"dip of 1 ms", 1, 0.2, 2, "Vcn", T::SIV},
    {"dip under 1 ms", 0.5, 0.2, 2, "Vcn", std::nullopt},
    {"[PQ%] exactly 1", 100, 1.0, 2, "Van", std::nullopt},
    {"[PQ%] just above 1", 100, 1.0001, 2, "Vab", T::VOD},
    {"[PQ%] just below 1", 100, 0.9999, 2, "Vbc", T::SIV},
    {"[PQ%] above 1, no duration", 0, 88, 2, "Vca", std::nullopt},
    {"other condition", 100, 88, 1, "Van", std::nullopt},
    {"current channel", 100, 88, 2, "Ia", std::nullopt},
    {"neutral voltage channel", 100, 88, 2, "Vn", std::nullopt},
};

} // namespace

TEST(VoltageEvents, ClassesAtTheirBoundsOnTheVoltageChannelsOnly)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pq.DB"));
    {
        MeterFileBuilder file(path);
        // Day 1 and 2 inside the period, day 3 after it.
        for (int day = 1; day <= 3; ++day) {
            const QString date = QStringLiteral("2024-03-0%1").arg(day + 3);
            file.dayRow(QStringLiteral("AllPQLogs"), date + QStringLiteral(" 00:00:00"), day, 1,
                        date + QStringLiteral(" 00:00:00"), date + QStringLiteral(" 23:59:59"));
            file.sql(MeterSchema().dayTable(LogKind::PowerQuality, day).createSql());
        }
        int second = 0;
        for (const Record& r : records) {
            // Newest first in the table: the list comes in start order.
            const QString start =
                QStringLiteral("2024-03-05 10:00:%1").arg(59 - second++, 2, 10, QLatin1Char('0'));
            file.sql(QStringLiteral("INSERT INTO PQLog_2 ([StartDate/Time], [EndDate/Time], "
                                    "Duration, [PQ%], ConditionCode, ChannelName, PQValue) "
                                    "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                     {start, start, r.duration, r.percent, r.condition,
                      QString::fromLatin1(r.channel), 10.0 * second});
        }
        file.sql(QStringLiteral("INSERT INTO PQLog_3 ([StartDate/Time], [EndDate/Time], Duration, "
                                "[PQ%], ConditionCode, ChannelName, PQValue) VALUES ('2024-03-06 "
                                "01:00:00', '2024-03-06 01:00:01', 100, 50, 2, 'Van', 1)"));
    }
    SilentProgress progress;
    const QList<VoltageEvent> events =
        VoltageEvents::read(path, WallClock::at({2024, 3, 4}, {0, 0}),
                            WallClock::at({2024, 3, 5}, {23, 59, 59}), progress);

    QList<const Record*> expected;
    for (int i = int(std::size(records)) - 1; i >= 0; --i) {
        if (records[i].expected)
            expected << &records[i];
    }
    ASSERT_EQ(events.size(), expected.size());
    for (qsizetype i = 0; i < events.size(); ++i) {
        SCOPED_TRACE(expected.at(i)->name);
        EXPECT_EQ(events.at(i).type, *expected.at(i)->expected);
        EXPECT_EQ(events.at(i).channel, QString::fromLatin1(expected.at(i)->channel));
        EXPECT_EQ(events.at(i).minPercent, expected.at(i)->percent);
    }
    EXPECT_EQ(VoltageEvents::count(events, T::SIV), 3);
    EXPECT_EQ(VoltageEvents::count(events, T::LIV), 1);
    EXPECT_EQ(VoltageEvents::count(events, T::VOD), 1);
}
