// SPDX-License-Identifier: GPL-3.0-or-later
// A report's numbers gathered from meter files: the statistics block of a simulated test row
// against the row's own bins, a count too large for its field, a test no longer in the file,
// and the daily series of a snapshot log built here.
#include "en50160/PqTestEvaluation.h"

#include "en50160/DailySeries.h"
#include "platform/Fault.h"
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "query/views/en50160/PqTestList.h"
#include "store/LogKind.h"
#include "store/MeterSchema.h"
#include "store/TableLayout.h"
#include "store/WallClock.h"
#include "support/MeterFileBuilder.h"
#include "support/TestMeters.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

/// The first row of the test list of a meter file over every period.
PqTestRow firstRow(const QString& meter, const QTemporaryDir& folder)
{
    auto scratch = lorvane::test::scratchDatabase(folder, QCoreApplication::applicationPid());
    LogFileEntry entry;
    entry.dbPath = meter;
    entry.hardwareName = QStringLiteral("Sim");
    entry.used = true;
    const GridTable grid = PqTestList::list(*scratch, {entry}, WallClock::at({2000, 1, 1}, {0, 0}),
                                            WallClock::at({2099, 1, 1}, {0, 0}));
    EXPECT_FALSE(grid.rowKeys.isEmpty());
    return PqTestRow::fromKeys(grid.rowKeys.value(0));
}

} // namespace

TEST(PqTestEvaluation, StatisticsOfASimulatedRowCarryItsBins)
{
    QTemporaryDir folder;
    const QString meter = folder.filePath(QStringLiteral("m.DB"));
    ASSERT_TRUE(lorvane::test::simulate({QStringLiteral("--out"), meter}));
    const PqTestRow row = firstRow(meter, folder);
    EXPECT_EQ(row.nominalVoltage, 120.0);
    SilentProgress progress;
    const PqTestEvaluation e = PqTestEvaluation::run(row, nullptr, progress);
    ASSERT_TRUE(e.found);

    SqliteDatabase db(meter, SqliteDatabase::Mode::ReadOnly);
    EXPECT_EQ(e.serial,
              db.scalar(QStringLiteral("SELECT HardwareID FROM DeviceInformation")).toString());
    EXPECT_FALSE(e.serial.isEmpty());
    SqlStatement select =
        db.prepare(QStringLiteral("SELECT * FROM AllPQTestLogs WHERE ID_PQTest = ?"));
    select.bind(1, row.testId);
    ASSERT_TRUE(select.next());
    for (int n = 1; n <= PqTestStatistics::storedBins; ++n) {
        const PqTestStatistics::Field field = PqTestStatistics::binField(n);
        EXPECT_EQ(double(e.statistics.unsignedAt(field.offset, field.width)),
                  select.value(QStringLiteral("bin_%1").arg(n)).toDouble())
            << "bin_" << n;
    }
    EXPECT_EQ(e.statistics.nominalFrequency(), 60);
    EXPECT_EQ(e.statistics.frequencyParameter(), 1);
    EXPECT_EQ(e.statistics.start(), row.start);
    EXPECT_EQ(e.statistics.end(), row.end);
}

TEST(PqTestEvaluation, ACountTooLargeForItsFieldAndAVanishedTest)
{
    QTemporaryDir folder;
    const QString meter = folder.filePath(QStringLiteral("m.DB"));
    ASSERT_TRUE(lorvane::test::simulate(
        {QStringLiteral("--out"), meter, QStringLiteral("--days"), QStringLiteral("1")}));
    const PqTestRow row = firstRow(meter, folder);
    {
        SqliteDatabase db(meter, SqliteDatabase::Mode::ReadWrite);
        db.execute(QStringLiteral("UPDATE AllPQTestLogs SET bin_3 = 65536"));
    }
    SilentProgress progress;
    try {
        PqTestEvaluation::run(row, nullptr, progress);
        ADD_FAILURE() << "a count past its field was taken";
    } catch (const Fault& fault) {
        EXPECT_TRUE(fault.message().startsWith(QStringLiteral("bin_3 = 65536: ")))
            << qPrintable(fault.message());
        EXPECT_EQ(fault.path(), meter);
    }
    {
        SqliteDatabase db(meter, SqliteDatabase::Mode::ReadWrite);
        db.execute(QStringLiteral("DELETE FROM AllPQTestLogs"));
    }
    const PqTestEvaluation e = PqTestEvaluation::run(row, nullptr, progress);
    EXPECT_FALSE(e.found);
    EXPECT_EQ(e.statistics.n2(), 0u);
    EXPECT_TRUE(e.series.isEmpty());
    EXPECT_EQ(PageEvaluation::word(e.verdicts[size_t(En50160Page::THD)]), QStringLiteral("Passed"));
}

TEST(DailySeries, LoggedHoursOfThePeriodInTimeOrder)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("h.DB"));
    {
        lorvane::test::MeterFileBuilder file(path);
        file.dataPoints({30002, 101, 30001, 30076});
        const MeterSchema schema;
        // Hour 0 of two days inside the period, and of a day after it.
        for (int day = 1; day <= 3; ++day) {
            const QString date = QStringLiteral("2024-03-0%1").arg(3 + day);
            file.dayRow(QStringLiteral("AllHistoricalLogs"), date + QStringLiteral(" 00:00:00"),
                        day, 3, date + QStringLiteral(" 00:00:00"),
                        date + QStringLiteral(" 00:59:59"));
            file.sql(schema.hourTimeIndexTable(LogKind::Snapshots, day, 0).createSql());
            file.sql(schema.hourValueTable(LogKind::Snapshots, day, 0).createSql());
            const QString times = QStringLiteral("HistLogTimeIndex_%1_0").arg(day);
            const QString values = QStringLiteral("HistLog_%1_0").arg(day);
            for (int i = 1; i <= 2; ++i) {
                file.sql(QStringLiteral("INSERT INTO %1 ([Date/TimeIndex], [Date/Time]) VALUES "
                                        "(?, ?)")
                             .arg(times),
                         {i, date + QStringLiteral(" 00:%1:00").arg(i * 10)});
                for (qint64 id : {30001, 30002, 101, 30003})
                    file.sql(QStringLiteral("INSERT INTO %1 ([Date/TimeIndex], DataID, Value) "
                                            "VALUES (?, ?, ?)")
                                 .arg(values),
                             {i, id, double(id % 1000) + day + i / 10.0});
            }
        }
    }
    SilentProgress progress;
    const QList<DailySeries> series =
        DailySeriesReader::read({path}, WallClock::at({2024, 3, 4}, {0, 0}),
                                WallClock::at({2024, 3, 5}, {23, 59, 59}), nullptr, progress);
    // 30003 is logged but not among the meter's data points; 101 is no plotted id.
    ASSERT_EQ(series.size(), 2);
    EXPECT_EQ(series.at(0).dataId, 30001);
    EXPECT_EQ(series.at(1).dataId, 30002);
    EXPECT_EQ(series.at(0).name, QStringLiteral("30001"));
    EXPECT_EQ(series.at(0).times, QStringList({"2024-03-04 00:10:00", "2024-03-04 00:20:00",
                                               "2024-03-05 00:10:00", "2024-03-05 00:20:00"}));
    EXPECT_EQ(series.at(1).values, QList<float>({3.1f, 3.2f, 4.1f, 4.2f}));
}
