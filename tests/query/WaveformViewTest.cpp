// SPDX-License-Identifier: GPL-3.0-or-later
// The waveform view on simulated meters: rows against the capture files, the type filter on
// the split meter's WAVEFORM and TRANSIENT files, the hand-over keys, and full scales.
#include "query/views/waveform/WaveformView.h"

#include "WaveformSimMeters.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/QueryContext.h"
#include "query/views/waveform/WaveformGrid.h"

#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

qint64 fileWaveRows(const QString& path)
{
    SqliteDatabase meter(path, SqliteDatabase::Mode::ReadOnly);
    return meter.scalar(QStringLiteral("SELECT sum(Recs) FROM AllWaveformLogs")).toLongLong();
}

} // namespace

TEST(WaveformView, TypeFilterOnTheSplitMetersCaptureFiles)
{
    WaveformSimMeters sim;
    const QString waveformFile = WaveformSimMeters::splitLog(QStringLiteral("WAVEFORM"));
    const QString transientFile = WaveformSimMeters::splitLog(QStringLiteral("TRANSIENT"));
    const qint64 waveforms = fileWaveRows(waveformFile);
    const qint64 transients = fileWaveRows(transientFile);
    ASSERT_GT(waveforms, 0);
    ASSERT_GT(transients, 0);

    const QList<qint64> expected{waveforms + transients, waveforms, transients};
    for (int type = 0; type < 3; ++type) {
        QueryContext context =
            sim.context({WaveformSimMeters::split()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
        context.typeFilter = type;
        const ViewResult result = WaveformView::run(context);
        const GridTable& grid = result.grids.first();
        EXPECT_EQ(grid.rows.size(), expected.at(type)) << type;
        EXPECT_EQ(grid.columns, WaveformGrid::columns());
        for (int r = 0; r < grid.rows.size(); ++r) {
            const QVariantMap& keys = grid.rowKeys.at(r);
            const bool transient = keys.value(QStringLiteral("Transient")).toBool();
            const QString path = keys.value(QStringLiteral("MeterPath")).toString();
            EXPECT_EQ(path, transient ? transientFile : waveformFile);
            EXPECT_TRUE(type != 1 || !transient);
            EXPECT_TRUE(type != 2 || transient);
            const QString label = keys.value(QStringLiteral("Label")).toString();
            const QString expectedStart =
                (transient ? QStringLiteral("Transients #") : QStringLiteral("Waveforms #")) +
                keys.value(QStringLiteral("CaptureNumber")).toString() + QStringLiteral(", ");
            EXPECT_TRUE(label.startsWith(expectedStart)) << label.toStdString();
            EXPECT_TRUE(label.endsWith(transient ? QStringLiteral(": Transient")
                                                 : QStringLiteral(": Waveform")));
            EXPECT_EQ(grid.rows.at(r).at(7), QStringLiteral("Feeder 15"));
        }
        // Fault: the kind word was matched case-sensitively; a lower-case path still counts.
        // And a descending query stored its range reversed in the catalogue.
        SqliteDatabase& db = context.scratch->database();
        db.execute(QStringLiteral("UPDATE %1 SET [sample0] = lower([sample0])")
                       .arg(result.numbers.sliceTable(QStringLiteral("WaveformLog_"))));
        EXPECT_EQ(
            WaveformGrid::fill(db, result.numbers, true, type, context.dataFormat).rows.size(),
            expected.at(type))
            << type;
    }
    QueryContext backwards =
        sim.context({WaveformSimMeters::split()}, "2024-03-05 23:59:59", "2024-03-04 00:00:00");
    backwards.descending = true;
    const ViewResult back = WaveformView::run(backwards);
    SqlStatement range = backwards.scratch->database().prepare(
        QStringLiteral("SELECT [StartDate/Time], [EndDate/Time] FROM AllQueries WHERE "
                       "[QueryIndex] = ?"));
    range.bindAll({back.numbers.query});
    ASSERT_TRUE(range.next());
    EXPECT_EQ(range.text(0), QStringLiteral("2024-03-04 00:00:00"));
    EXPECT_EQ(range.text(1), QStringLiteral("2024-03-05 23:59:59"));
}

TEST(WaveformView, RowsKeysAndFullScalesOfOneMeterFile)
{
    WaveformSimMeters sim;
    QueryContext context =
        sim.context({WaveformSimMeters::standard()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    const ViewResult result = WaveformView::run(context);
    const GridTable& grid = result.grids.first();
    ASSERT_EQ(grid.rows.size(), fileWaveRows(WaveformSimMeters::standard().dbPath));

    // Against the file's own rows: same record counters, and the first row's texts.
    SqliteDatabase meter(WaveformSimMeters::standard().dbPath, SqliteDatabase::Mode::ReadOnly);
    const qint64 firstTable =
        meter
            .scalar(
                QStringLiteral("SELECT min(LogTablesIndex) FROM AllWaveformLogs WHERE Recs > 0"))
            .toLongLong();
    SqlStatement first = meter.prepare(
        QStringLiteral("SELECT RecCounter, WaveformNumber, TriggeredBy1, WTms, [Index] FROM "
                       "WaveformLog_%1 ORDER BY [Date/Time], ms LIMIT 1")
            .arg(firstTable));
    ASSERT_TRUE(first.next());
    const QStringList& row = grid.rows.first();
    EXPECT_EQ(row.last(), QString::number(first.integer(0)));
    EXPECT_EQ(row.at(10), QString::number(first.integer(1)));
    EXPECT_EQ(row.at(9), first.text(2));
    EXPECT_EQ(row.at(26), QString::number(first.integer(4)));
    const QString fraction =
        QStringLiteral(".%1").arg(qRound(first.real(3) * 10), 4, 10, QLatin1Char('0'));
    EXPECT_TRUE(row.at(3).endsWith(fraction)) << row.at(3).toStdString();
    EXPECT_EQ(grid.rowKeys.first().value(QStringLiteral("RecCounter")).toLongLong(),
              first.integer(0));

    // The kind word is not in the samples of a one-file meter: no row is a "Waveform Log" row.
    QueryContext filtered =
        sim.context({WaveformSimMeters::standard()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    filtered.typeFilter = 1;
    EXPECT_TRUE(WaveformView::run(filtered).grids.first().rows.isEmpty());
    filtered.typeFilter = 3;
    EXPECT_ANY_THROW(WaveformView::run(filtered));

    // One full scale and one setting row per setting index the rows use, from this meter.
    SqliteDatabase& db = context.scratch->database();
    const QString scales = result.numbers.sliceTable(QStringLiteral("FullScales_"));
    const qint64 indexes =
        db.scalar(QStringLiteral("SELECT count(DISTINCT [Index]) FROM [%1]")
                      .arg(result.numbers.sliceTable(QStringLiteral("WaveformLog_"))))
            .toLongLong();
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM [%1]").arg(scales)).toLongLong(),
              indexes);
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT min(FullScale1) || '/' || max(DeviceIndex) FROM "
                                       "[%1]")
                            .arg(scales))
                  .toString(),
              QStringLiteral("120.0/1"));
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM [%1]")
                            .arg(result.numbers.sliceTable(QStringLiteral("PQWaveLogDataItem_"))))
                  .toLongLong(),
              indexes);
}
