// SPDX-License-Identifier: GPL-3.0-or-later
// The loader against what the simulator wrote, read back by an independent join.
#include "trend/TrendLoader.h"

#include "TrendSimMeter.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "support/RecordingProgress.h"
#include "trend/TrendTime.h"

#include <QFile>
#include <gtest/gtest.h>

namespace lorvane {
namespace {

using test::TrendSimMeter;

/// Cancels at the `after`-th question.
class CancelAfter : public RecordingProgress
{
public:
    explicit CancelAfter(int after) : m_after(after) {}

protected:
    void serve() override
    {
        if (--m_after < 0)
            requestCancel();
    }

private:
    int m_after;
};

TEST(TrendLoaderTest, ReadsEveryRowOfTheRangeOncePerSetInTimeOrder)
{
    TrendSimMeter meter(2, 15, 6);
    const QList<qint32> ids = meter.dataIds();
    ASSERT_GE(ids.size(), 3);
    struct Case
    {
        const char* name;
        QDateTime from;
        QDateTime to;
    };
    const Case cases[] = {
        {"whole file", TrendSimMeter::at(0, 0), TrendSimMeter::at(1, 23, 59)},
        {"range ends inside hours", TrendSimMeter::at(0, 5, 20), TrendSimMeter::at(1, 2, 15)},
        {"one instant", TrendSimMeter::at(1, 3, 30), TrendSimMeter::at(1, 3, 30)},
        {"before the file", TrendSimMeter::at(-5, 0), TrendSimMeter::at(-4, 0)},
    };
    for (const Case& c : cases) {
        const TrendRequest request{{meter.entry()}, {ids.at(2), ids.at(0)}, c.from, c.to};
        RecordingProgress progress;
        const TrendLoad load = TrendLoader::load(request, progress);
        EXPECT_FALSE(load.cancelled);
        qint64 expected = 0;
        for (qint32 id : request.dataIds) {
            const qint64 rows = meter.rowsOf(id, c.from, c.to);
            expected += rows;
            const auto set = std::find_if(load.sets.cbegin(), load.sets.cend(),
                                          [id](const GraphSet& s) { return s.dataId == id; });
            if (rows == 0) {
                EXPECT_EQ(set, load.sets.cend()) << c.name;
                continue;
            }
            ASSERT_NE(set, load.sets.cend()) << c.name;
            EXPECT_EQ(set->size(), rows) << c.name;
            EXPECT_TRUE(std::is_sorted(set->times.cbegin(), set->times.cend())) << c.name;
            EXPECT_GE(set->times.first(), TrendTime::of(c.from)) << c.name;
            EXPECT_LE(set->times.last(), TrendTime::of(c.to)) << c.name;
        }
        EXPECT_EQ(load.samples, expected) << c.name;
        if (load.sets.size() == 2) {
            EXPECT_EQ(load.sets.at(0).dataId, ids.at(2)) << "selection order";
            EXPECT_TRUE(load.sets.at(1).times.isSharedWith(load.sets.at(0).times))
                << "points of the same instants share one time column";
        }
    }
}

TEST(TrendLoaderTest, ValuesComeBackAsStoredTextByItsLeadingNumberAndTwoMetersApart)
{
    TrendSimMeter first(1, 30, 4, 1);
    TrendSimMeter second(1, 30, 4, 2);
    const qint32 id = first.dataIds().first();
    {
        SqliteDatabase db(first.path(), SqliteDatabase::Mode::ReadWrite);
        db.execute(QStringLiteral("UPDATE HistLog_1_0 SET [Value] = '12.5 V' WHERE [DataID] = ? "
                                  "AND [Date/TimeIndex] = 1"),
                   {id});
        db.execute(QStringLiteral("UPDATE HistLog_1_0 SET [Value] = NULL WHERE [DataID] = ? "
                                  "AND [Date/TimeIndex] = 2"),
                   {id});
    }
    SilentProgress progress;
    const TrendLoad load = TrendLoader::load({{first.entry(), second.entry()},
                                              {id},
                                              TrendSimMeter::at(0, 0),
                                              TrendSimMeter::at(0, 23, 59)},
                                             progress);
    ASSERT_EQ(load.sets.size(), 2);
    EXPECT_EQ(load.sets.at(0).values.at(0), 12.5);
    EXPECT_TRUE(std::isnan(load.sets.at(0).values.at(1))) << "an empty value is a gap";
    EXPECT_EQ(load.sets.at(1).meter, 1);
    EXPECT_NE(load.sets.at(0).values.at(2), load.sets.at(1).values.at(2)) << "other seed";
    EXPECT_EQ(load.sets.at(0).times.at(0), TrendTime::of(TrendSimMeter::at(0, 0)));
}

TEST(TrendLoaderTest, ACancelledLoadKeepsWhatItReadAndAMissingHourTableNamesTheFile)
{
    TrendSimMeter meter(2, 10, 3);
    const TrendRequest request{
        {meter.entry()}, meter.dataIds(), TrendSimMeter::at(0, 0), TrendSimMeter::at(1, 23, 59)};
    CancelAfter progress(5);
    const TrendLoad load = TrendLoader::load(request, progress);
    EXPECT_TRUE(load.cancelled);
    ASSERT_FALSE(load.sets.isEmpty());
    EXPECT_EQ(load.sets.first().size(), 5 * 6) << "five hours of ten-minute values";
    EXPECT_FALSE(progress.fractions.isEmpty());

    {
        SqliteDatabase db(meter.path(), SqliteDatabase::Mode::ReadWrite);
        db.execute(QStringLiteral("DROP TABLE HistLog_2_4"));
    }
    SilentProgress silent;
    try {
        TrendLoader::load(request, silent);
        FAIL() << "a flagged hour without its table must fail";
    } catch (const StorageError& e) {
        EXPECT_EQ(e.path(), meter.path());
        EXPECT_TRUE(QString::fromStdString(e.what()).contains(QStringLiteral("HistLog_2_4")));
    }
}

} // namespace
} // namespace lorvane
