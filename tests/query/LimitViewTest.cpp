// SPDX-License-Identifier: GPL-3.0-or-later
// The limit view on simulated meters: rows and texts against the meter file's own rows, the
// start-in-range rule, two meters, sort orders and an empty range.
#include "query/views/limit/LimitView.h"

#include "WaveformSimMeters.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/QueryContext.h"
#include "query/views/limit/LimitGrid.h"

#include <gtest/gtest.h>
#include <tuple>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

/// The limit records of a meter file that start in [from, to], joined with their items.
qint64 fileLimits(const QString& path, const char* from, const char* to)
{
    SqliteDatabase meter(path, SqliteDatabase::Mode::ReadOnly);
    qint64 rows = 0;
    SqlStatement days =
        meter.prepare(QStringLiteral("SELECT LogTablesIndex FROM AllLimitsLogs WHERE Recs > 0"));
    QList<qint64> tables;
    while (days.next())
        tables << days.integer(0);
    for (qint64 n : tables) {
        rows += meter
                    .scalar(QStringLiteral("SELECT count(*) FROM LimitsLog_%1 AS L JOIN "
                                           "LimitsLogDataItem AS I ON L.LinkIndex = I.LinkIndex "
                                           "WHERE L.[StartDate/Time] BETWEEN ? AND ?")
                                .arg(n),
                            {QString::fromLatin1(from), QString::fromLatin1(to)})
                    .toLongLong();
    }
    return rows;
}

int column(const GridTable& grid, const char* name)
{
    return static_cast<int>(grid.columns.indexOf(QString::fromLatin1(name)));
}

} // namespace

TEST(LimitView, RowsAndTextsMatchTheMeterFile)
{
    WaveformSimMeters sim;
    QueryContext context =
        sim.context({WaveformSimMeters::standard()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    const ViewResult result = LimitView::run(context);
    ASSERT_EQ(result.grids.size(), 2);
    const GridTable& grid = result.grids.first();
    EXPECT_EQ(grid.caption, QStringLiteral("Show Limits"));
    EXPECT_EQ(grid.columns, LimitGrid::columns());
    const qint64 expected = fileLimits(WaveformSimMeters::standard().dbPath, "2024-03-04 00:00:00",
                                       "2024-03-05 23:59:59");
    ASSERT_GT(expected, 3);
    EXPECT_EQ(grid.rows.size(), expected);
    EXPECT_EQ(result.rowsRead, expected);
    EXPECT_FALSE(result.noData);

    // The outage of day 2 gives three "Below" records from 10:00:00 with limit 1 (90 % of
    // 120 V), value 0, on the three phase voltages.
    int outage = 0;
    for (int r = 0; r < grid.rows.size(); ++r) {
        const QStringList& row = grid.rows.at(r);
        EXPECT_EQ(row.at(column(grid, "Device")), QStringLiteral("Main Switchboard"));
        EXPECT_EQ(grid.rowPictures.at(r), QStringLiteral("Limits"));
        EXPECT_TRUE(row.at(column(grid, "Limit ID")).startsWith(QStringLiteral("Limit ")));
        if (grid.rowKeys.at(r).value(QStringLiteral("StartDateTime")).toString() ==
            QStringLiteral("2024-03-05 10:00:00")) {
            ++outage;
            EXPECT_EQ(row.at(column(grid, "Limit ID")), QStringLiteral("Limit 1"));
            EXPECT_EQ(row.at(column(grid, "State")), QStringLiteral("Below"));
            EXPECT_EQ(row.at(column(grid, "Set Point")), QStringLiteral("Below 108 or 90%"));
            EXPECT_EQ(row.at(column(grid, "Duration (S)")), QStringLiteral("10800"));
            EXPECT_EQ(row.at(column(grid, "Value")), QStringLiteral("0.00"));
            EXPECT_TRUE(row.at(0).endsWith(QStringLiteral(".000"))) << row.at(0).toStdString();
            EXPECT_TRUE(row.at(column(grid, "Data")).startsWith(QStringLiteral("N/A 206")));
        }
    }
    EXPECT_EQ(outage, 3);

    // Time order ascending: each row starts no earlier than the one before.
    for (int r = 1; r < grid.rowKeys.size(); ++r) {
        EXPECT_LE(grid.rowKeys.at(r - 1).value(QStringLiteral("StartDateTime")).toString(),
                  grid.rowKeys.at(r).value(QStringLiteral("StartDateTime")).toString());
    }
}

TEST(LimitView, ALimitThatBeganBeforeTheRangeIsNotFound)
{
    WaveformSimMeters sim;
    QueryContext inside =
        sim.context({WaveformSimMeters::standard()}, "2024-03-05 10:00:00", "2024-03-05 12:00:00");
    QueryContext after =
        sim.context({WaveformSimMeters::standard()}, "2024-03-05 10:00:01", "2024-03-05 12:00:00");
    const ViewResult withStart = LimitView::run(inside);
    const ViewResult withoutStart = LimitView::run(after);
    const auto startsAtTen = [](const GridTable& grid) {
        int n = 0;
        for (const QVariantMap& keys : grid.rowKeys)
            n += keys.value(QStringLiteral("StartDateTime")).toString() ==
                 QStringLiteral("2024-03-05 10:00:00");
        return n;
    };
    // The outage records run until 13:00, yet only a range holding their start finds them.
    EXPECT_EQ(startsAtTen(withStart.grids.first()), 3);
    EXPECT_EQ(startsAtTen(withoutStart.grids.first()), 0);
    EXPECT_EQ(withoutStart.grids.first().rows.size(),
              fileLimits(WaveformSimMeters::standard().dbPath, "2024-03-05 10:00:01",
                         "2024-03-05 12:00:00"));
}

TEST(LimitView, TwoMetersSortsAndAnEmptyRange)
{
    WaveformSimMeters sim;
    QueryContext context = sim.context({WaveformSimMeters::standard(), WaveformSimMeters::talmo()},
                                       "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    context.descending = true;
    const ViewResult both = LimitView::run(context);
    const GridTable& grid = both.grids.first();
    int first = 0;
    int second = 0;
    for (int r = 0; r < grid.rows.size(); ++r) {
        const qint64 device = grid.rowKeys.at(r).value(QStringLiteral("DeviceIndex")).toLongLong();
        const QString name = grid.rows.at(r).at(column(grid, "Device"));
        if (device == 1) {
            ++first;
            EXPECT_EQ(name, QStringLiteral("Main Switchboard"));
        } else {
            ++second;
            EXPECT_EQ(device, 2);
            EXPECT_EQ(name, QStringLiteral("Chiller Plant"));
        }
        if (r > 0) {
            EXPECT_GE(grid.rowKeys.at(r - 1).value(QStringLiteral("StartDateTime")).toString(),
                      grid.rowKeys.at(r).value(QStringLiteral("StartDateTime")).toString());
        }
    }
    EXPECT_EQ(first, fileLimits(WaveformSimMeters::standard().dbPath, "2024-03-04 00:00:00",
                                "2024-03-05 23:59:59"));
    EXPECT_EQ(second, fileLimits(WaveformSimMeters::talmo().dbPath, "2024-03-04 00:00:00",
                                 "2024-03-05 23:59:59"));

    // By a sort item: its column never falls, and equal keys stay in time order. "Data Point"
    // sorts by the point's name (a fault sorted it by its id).
    QueryContext byValue =
        sim.context({WaveformSimMeters::standard()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    for (const auto& [item, heading, numeric] :
         {std::tuple{"Value", "Value", true}, std::tuple{"Data Point", "Data", false}}) {
        SCOPED_TRACE(item);
        byValue.sortColumn = QString::fromLatin1(item);
        const GridTable sorted = LimitView::run(byValue).grids.first();
        ASSERT_EQ(sorted.rows.size(), first);
        const int at = column(sorted, heading);
        for (int r = 1; r < sorted.rows.size(); ++r) {
            const QString before = sorted.rows.at(r - 1).at(at);
            const QString now = sorted.rows.at(r).at(at);
            const int order = numeric ? (QLocale().toDouble(before) < QLocale().toDouble(now)
                                             ? -1
                                             : QLocale().toDouble(before) > QLocale().toDouble(now))
                                      : before.compare(now);
            EXPECT_LE(order, 0) << before.toStdString() << " / " << now.toStdString();
            if (order == 0) {
                EXPECT_LE(
                    sorted.rowKeys.at(r - 1).value(QStringLiteral("StartDateTime")).toString(),
                    sorted.rowKeys.at(r).value(QStringLiteral("StartDateTime")).toString());
            }
        }
    }
    byValue.sortColumn = QStringLiteral("No Such Item");
    EXPECT_ANY_THROW(LimitView::run(byValue));

    QueryContext empty =
        sim.context({WaveformSimMeters::standard()}, "2023-01-01 00:00:00", "2023-01-02 00:00:00");
    const ViewResult none = LimitView::run(empty);
    EXPECT_TRUE(none.noData);
    EXPECT_TRUE(none.grids.first().rows.isEmpty());
    EXPECT_EQ(none.grids.first().columns, LimitGrid::columns());
    EXPECT_TRUE(none.rangeText.startsWith(QStringLiteral("No data found: ")));
}
