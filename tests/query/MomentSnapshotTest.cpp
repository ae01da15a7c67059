// SPDX-License-Identifier: GPL-3.0-or-later
// The snapshot grid the limit, input, relay and flicker views show beside their own log: the
// selected points of the same range, checked against the meter file's snapshot rows read with
// plain SQL.
#include "InputSimFixture.h"
#include "WaveformSimMeters.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/GridTable.h"
#include "query/views/flicker/FlickerView.h"
#include "query/views/input/InputView.h"
#include "query/views/limit/LimitView.h"
#include "query/views/relay/RelayView.h"

#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

namespace {

/// The meter file's snapshot instants in [from, to] ("YYYY-MM-DD HH:MM:SS") in time order,
/// each with the value of `dataId`.
QList<std::pair<QString, double>> fileSnapshots(const QString& path, qint64 dataId,
                                                const char* from, const char* to)
{
    SqliteDatabase meter(path, SqliteDatabase::Mode::ReadOnly);
    QStringList hours;
    SqlStatement tables = meter.prepare(
        QStringLiteral("SELECT substr(name, 18) FROM sqlite_master WHERE type = 'table' AND "
                       "name LIKE 'HistLogTimeIndex\\_%' ESCAPE '\\'"));
    while (tables.next())
        hours << tables.text(0);
    QStringList parts;
    for (const QString& hour : hours) {
        parts << QStringLiteral("SELECT T.[Date/Time] AS t, V.[Value] AS v FROM "
                                "[HistLogTimeIndex_%1] AS T JOIN [HistLog_%1] AS V ON "
                                "V.[Date/TimeIndex] = T.[Date/TimeIndex] WHERE V.[DataID] = %2 "
                                "AND T.[Date/Time] BETWEEN '%3' AND '%4'")
                     .arg(hour)
                     .arg(dataId)
                     .arg(QLatin1String(from), QLatin1String(to));
    }
    QList<std::pair<QString, double>> out;
    if (parts.isEmpty())
        return out;
    SqlStatement rows =
        meter.prepare(parts.join(QStringLiteral(" UNION ALL ")) + QStringLiteral(" ORDER BY t"));
    while (rows.next())
        out.append({rows.text(0), rows.real(1)});
    return out;
}

/// Expects `grid` to be the snapshot grid of `ids` (ascending as text) of the meter at
/// `path`, device number `device` (its position plus one) of type `type` named `name`, over
/// [from, to], in time order (`descending` for newest first).
void expectMomentSnapshot(const GridTable& grid, const QString& path, int device, int type,
                          const QString& name, const QList<qint64>& ids, const char* from,
                          const char* to, bool descending = false)
{
    EXPECT_EQ(grid.caption, QStringLiteral("Show Snapshots"));
    QStringList columns{QStringLiteral("Date/Time"), QStringLiteral("DTmode"),
                        QStringLiteral("Record Type"), QStringLiteral("Profile Index")};
    QStringList first{QStringLiteral("Device Index/Type/Data ID"), QString(), QString(), QString()};
    for (qint64 id : ids) {
        columns << QStringLiteral("%1_%2").arg(device).arg(id);
        first << QStringLiteral("%1/%2/%3").arg(device).arg(type).arg(id);
    }
    EXPECT_EQ(grid.columns, columns);
    ASSERT_EQ(grid.headingRows.size(), 2);
    EXPECT_EQ(grid.headingRows.at(0), first);
    ASSERT_EQ(grid.headingRows.at(1).size(), columns.size());
    for (qsizetype c = 4; c < columns.size(); ++c)
        EXPECT_TRUE(grid.headingRows.at(1).at(c).endsWith(QStringLiteral(" - ") + name))
            << grid.headingRows.at(1).at(c).toStdString();

    const QList<std::pair<QString, double>> expected = fileSnapshots(path, ids.first(), from, to);
    ASSERT_GT(expected.size(), 1);
    ASSERT_EQ(grid.rows.size(), expected.size());
    const auto oldest = descending ? grid.rows.last() : grid.rows.first();
    const auto newest = descending ? grid.rows.first() : grid.rows.last();
    EXPECT_EQ(oldest.at(4), QString::number(expected.first().second, 'f', 2));
    EXPECT_EQ(newest.at(4), QString::number(expected.last().second, 'f', 2));
    EXPECT_NE(oldest.at(0), newest.at(0));
}

} // namespace

TEST(MomentSnapshot, EveryStatusViewShowsTheSnapshotsOfItsRange)
{
    struct Case
    {
        const char* view;
        std::function<ViewResult(QueryContext&)> run;
        bool limitMeter; ///< the limit view's meter, else the board meter of the status logs
        const char* from;
        const char* to;
        QList<qint64> ids;
        QList<qint64> columns; ///< ascending as text
        const char* captions;  ///< of every grid the view shows, in order, joined by '|'
        int snapshotGrid;
        bool descending;
    };
    // clang-format off
    // The input range holds the outage from 10:00 to 13:00, whose hours have no snapshots.
    const QList<Case> cases{
        {"input", InputView::run, false, "2024-03-05 09:00:00", "2024-03-05 14:59:59", {20621},
         {20621}, "Show Inputs|Show Snapshots|Show Input Settings", 1, false},
        {"relay", RelayView::run, false, "2024-03-04 17:00:00", "2024-03-04 20:59:59",
         {21017, 20617, 20625}, {20617, 20625, 21017},
         "Show Relays|Show Snapshots|Show Relay Settings", 1, false},
        {"flicker", FlickerView::run, false, "2024-03-04 00:00:00", "2024-03-04 05:59:59",
         {20617}, {20617}, "Show Snapshots|Show Flicker Max/Min", 0, true},
        {"limit", LimitView::run, true, "2024-03-04 06:00:00", "2024-03-04 09:59:59",
         {21017, 20617}, {20617, 21017}, "Show Limits|Show Snapshots", 1, false},
    };
    // clang-format on
    SimMeters sim;
    const QString board = sim.meter(QStringLiteral("Board"));
    WaveformSimMeters waveSim;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.view);
        QueryContext context = c.limitMeter
                                   ? waveSim.context({WaveformSimMeters::standard()}, c.from, c.to)
                                   : sim.context({board}, c.from, c.to);
        context.descending = c.descending;
        context.dataIds = c.ids;
        const ViewResult view = c.run(context);
        QStringList captions;
        for (const GridTable& grid : view.grids)
            captions << grid.caption;
        ASSERT_EQ(captions.join(u'|'), QLatin1String(c.captions));
        expectMomentSnapshot(view.grids.at(c.snapshotGrid),
                             c.limitMeter ? WaveformSimMeters::standard().dbPath : board, 1, 3,
                             c.limitMeter ? QStringLiteral("Main Switchboard")
                                          : QStringLiteral("Board"),
                             c.columns, c.from, c.to, c.descending);
    }
}
