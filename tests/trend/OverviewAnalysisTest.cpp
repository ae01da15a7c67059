// SPDX-License-Identifier: GPL-3.0-or-later
// The overview tables against what the simulator wrote.
#include "trend/OverviewAnalysis.h"

#include "TrendSimMeter.h"
#include "platform/Fault.h"
#include "platform/SqliteDatabase.h"
#include "support/RecordingProgress.h"

#include <QFile>
#include <gtest/gtest.h>

namespace lorvane {
namespace {

using test::TrendSimMeter;

QStringList run(const QString& path, LoadProgress& progress, OverviewAnalysis::Result* result)
{
    QStringList lines;
    *result = OverviewAnalysis::analyze(
        path, [&lines](const QString& line) { lines << line; }, progress);
    return lines;
}

TEST(OverviewAnalysisTest, CountsEveryHourOfEverySetAsTheSimulatorWroteIt)
{
    TrendSimMeter meter(2, 20, 5);
    SilentProgress progress;
    OverviewAnalysis::Result result;
    const QStringList lines = run(meter.path(), progress, &result);
    ASSERT_TRUE(result.completed);
    EXPECT_EQ(lines.first(), QStringLiteral("Opening Database"));
    EXPECT_TRUE(lines.contains(QStringLiteral("Processing [2024/03/05 7:00:00]")));
    EXPECT_EQ(lines.last(), QStringLiteral("Analysis done."));

    QStringList loadLines;
    const QList<OverviewSet> sets = OverviewAnalysis::load(
        meter.path(), [&loadLines](const QString& line) { loadLines << line; });
    EXPECT_EQ(sets.size(), result.tables);
    EXPECT_TRUE(loadLines.contains(QString::number(sets.size()) + QStringLiteral(" sets found.")));
    int withValues = 0;
    SqliteDatabase db(meter.path(), SqliteDatabase::Mode::ReadOnly);
    for (const OverviewSet& set : sets) {
        const QMap<QDateTime, qint64> hours =
            meter.hoursOf(set.dataId, TrendSimMeter::at(0, 0), TrendSimMeter::at(2, 0));
        qint64 rows = 0;
        for (qint64 count : hours)
            rows += count;
        EXPECT_EQ(set.totalPoints, rows) << set.dataId;
        EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM ") +
                            OverviewAnalysis::tableOf(set.dataId))
                      .toInt(),
                  hours.size())
            << "one row for each hour with values, none for an hour without";
        if (hours.isEmpty())
            continue;
        ++withValues;
        EXPECT_EQ(set.first, hours.firstKey());
        EXPECT_EQ(set.last, hours.lastKey());
    }
    EXPECT_EQ(withValues, meter.dataIds().size());
}

TEST(OverviewAnalysisTest, AnInterruptedRerunLeavesTheOldTablesWhole)
{
    TrendSimMeter meter(1, 30, 3);
    SilentProgress progress;
    OverviewAnalysis::Result result;
    run(meter.path(), progress, &result);
    const QString table = OverviewAnalysis::tableOf(meter.dataIds().first());
    auto rows = [&meter, &table] {
        SqliteDatabase db(meter.path(), SqliteDatabase::Mode::ReadOnly);
        return db.scalar(QStringLiteral("SELECT count(*) FROM ") + table).toInt();
    };
    ASSERT_EQ(rows(), 24);

    RecordingProgress cancelled;
    cancelled.requestCancel();
    run(meter.path(), cancelled, &result);
    EXPECT_FALSE(result.completed);
    EXPECT_EQ(rows(), 24) << "the tables of the first run";

    {
        SqliteDatabase db(meter.path(), SqliteDatabase::Mode::ReadWrite);
        db.execute(QStringLiteral("DROP TABLE HistLog_1_3"));
    }
    run(meter.path(), progress, &result);
    EXPECT_TRUE(result.completed) << "a failing hour shows Error and the run goes on";
    EXPECT_EQ(result.errors, 1);
    EXPECT_EQ(rows(), 23);
}

TEST(OverviewAnalysisTest, RefusesAReadOnlyFileAndCountsNoSetsOfAnEmptyList)
{
    TrendSimMeter meter(1, 60, 2);
    {
        SqliteDatabase db(meter.path(), SqliteDatabase::Mode::ReadWrite);
        db.execute(QStringLiteral("DELETE FROM DataPoints"));
    }
    QStringList lines;
    EXPECT_TRUE(
        OverviewAnalysis::load(meter.path(), [&lines](const QString& l) { lines << l; }).isEmpty());
    EXPECT_TRUE(lines.contains(QStringLiteral("0 sets found.")));

    QFile::setPermissions(meter.path(), QFile::ReadOwner);
    SilentProgress progress;
    OverviewAnalysis::Result result;
    EXPECT_THROW(run(meter.path(), progress, &result), Fault);
    QFile::setPermissions(meter.path(), QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace
} // namespace lorvane
