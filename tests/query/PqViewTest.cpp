// SPDX-License-Identifier: GPL-3.0-or-later
// The PQ view on simulated meters: records against the meter file, the link to captures (the
// simulator's orphan sag on Vcn has none), "list waveforms" and the setting of a row, on one
// file and on the split meter's separate PQ_LOG, WAVEFORM and TRANSIENT files.
#include "query/views/pq/PqView.h"

#include "WaveformSimMeters.h"
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/QueryContext.h"
#include "query/views/pq/PqGrid.h"
#include "query/views/setup/SetupRecordViews.h"

#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

qint64 filePqRows(const QString& path)
{
    SqliteDatabase meter(path, SqliteDatabase::Mode::ReadOnly);
    return meter.scalar(QStringLiteral("SELECT sum(Recs) FROM AllPQLogs")).toLongLong();
}

int column(const GridTable& grid, const char* name)
{
    return static_cast<int>(grid.columns.indexOf(QString::fromLatin1(name)));
}

/// Checks one PQ view against its meter's PQ file: every record shown, only the orphan
/// without a capture, and the captures of each linked record listed by number.
void checkPqView(WaveformSimMeters& sim, const LogFileEntry& meter, const QString& pqFile,
                 const QString& name)
{
    QueryContext context = sim.context({meter}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    const ViewResult result = PqView::run(context);
    ASSERT_EQ(result.grids.size(), 2);
    const GridTable& pq = result.grids.at(0);
    EXPECT_EQ(pq.caption, QStringLiteral("Show PQs"));
    EXPECT_EQ(pq.columns, PqGrid::columns());
    ASSERT_EQ(pq.rows.size(), filePqRows(pqFile));
    ASSERT_GT(pq.rows.size(), 1);

    int orphans = 0;
    for (int r = 0; r < pq.rows.size(); ++r) {
        const QStringList& row = pq.rows.at(r);
        const QVariantMap& keys = pq.rowKeys.at(r);
        EXPECT_EQ(row.at(column(pq, "Device")), name);
        // The simulator stores every link set, the orphan's too: the picture shows as stored,
        // in the "Waveforms" column (a fault put it in column 0). The condition's words
        // colour the row (a fault left every row plain).
        EXPECT_EQ(pq.rowPictures.at(r), QStringLiteral("Wave"));
        EXPECT_EQ(pq.pictureColumn, column(pq, "Waveforms"));
        const QString condition = row.at(column(pq, "Condition")).toUpper();
        const QString key = pq.rowConditions.value(r);
        EXPECT_TRUE(key.isEmpty() ? !condition.contains(QStringLiteral("SAG")) &&
                                        !condition.contains(QStringLiteral("SURGE"))
                                  : condition.contains(key))
            << condition.toStdString() << " / " << key.toStdString();
        const bool orphan = keys.value(QStringLiteral("SWNumber")).toLongLong() == 9999;
        EXPECT_EQ(keys.value(QStringLiteral("CaptureMissing")).toBool(), orphan)
            << row.join(QLatin1Char('|')).toStdString();
        if (orphan) {
            ++orphans;
            EXPECT_EQ(row.at(column(pq, "Condition")), QStringLiteral("SAG"));
            EXPECT_EQ(pq.rowConditions.value(r), QStringLiteral("SAG"));
            EXPECT_EQ(row.at(column(pq, "Channel")), QStringLiteral("Vcn"));
            EXPECT_EQ(row.at(column(pq, "Duration ms")), QStringLiteral("50"));
            // Startms 250 with a tenth shows as four digits of tenths.
            EXPECT_TRUE(row.at(0).endsWith(QStringLiteral(".2500"))) << row.at(0).toStdString();
            const GridTable none = PqGrid::listWaveforms(
                context.scratch->database(), result.numbers, keys, false, context.dataFormat);
            EXPECT_TRUE(none.rows.isEmpty());
            continue;
        }
        const GridTable waves = PqGrid::listWaveforms(context.scratch->database(), result.numbers,
                                                      keys, false, context.dataFormat);
        const qint64 firstNumber = keys.value(QStringLiteral("SWNumber")).toLongLong();
        const qint64 lastNumber = keys.value(QStringLiteral("EWNumber")).toLongLong();
        ASSERT_EQ(waves.rows.size(), lastNumber - firstNumber + 1);
        for (int w = 0; w < waves.rows.size(); ++w) {
            const QVariantMap& wave = waves.rowKeys.at(w);
            EXPECT_EQ(wave.value(QStringLiteral("CaptureNumber")).toLongLong(), firstNumber + w);
            EXPECT_EQ(wave.value(QStringLiteral("Index")), keys.value(QStringLiteral("Index")));
            // The trigger of the capture is the record's start.
            EXPECT_EQ(wave.value(QStringLiteral("TriggerDateTime")).toString(),
                      keys.value(QStringLiteral("StartDateTime")).toString());
        }
    }
    EXPECT_EQ(orphans, 1);
    // The detail grid lists the captures of the first record.
    const qint64 firstSpan = pq.rowKeys.first().value(QStringLiteral("EWNumber")).toLongLong() -
                             pq.rowKeys.first().value(QStringLiteral("SWNumber")).toLongLong() + 1;
    EXPECT_EQ(result.grids.at(1).rows.size(),
              pq.rowKeys.first().value(QStringLiteral("CaptureMissing")).toBool() ? 0 : firstSpan);

    // The setting of the orphan (Index 1: wye, 128 per cycle, three rows a capture).
    for (const QVariantMap& keys : pq.rowKeys) {
        if (keys.value(QStringLiteral("SWNumber")).toLongLong() != 9999)
            continue;
        const GridTable setting =
            SetupRecordViews::pqWaveSetting(context.scratch->database(), result.numbers,
                                            keys.value(QStringLiteral("DeviceIndex")).toLongLong(),
                                            keys.value(QStringLiteral("Index")).toLongLong());
        // The orphan still finds its setting: the wiring word and picture, and the rate.
        bool wye = false;
        bool rate = false;
        for (qsizetype r = 0; r < setting.rows.size(); ++r) {
            const QStringList& row = setting.rows.at(r);
            if (row.value(0) == QStringLiteral("HookUp")) {
                wye = row.value(1) == QStringLiteral("Wye") &&
                      setting.rowPictures.value(r) == QStringLiteral("WWye");
            }
            if (row.value(0) == QStringLiteral("Sampling Rate"))
                rate = row.value(1) == QStringLiteral("128");
        }
        EXPECT_TRUE(wye);
        EXPECT_TRUE(rate);
    }
}

} // namespace

TEST(PqView, RecordsLinksAndCapturesOfOneMeterFile)
{
    WaveformSimMeters sim;
    checkPqView(sim, WaveformSimMeters::standard(), WaveformSimMeters::standard().dbPath,
                QStringLiteral("Main Switchboard"));

    // Fault: the day's progress counted PQ records and captures as "data points".
    struct Lines : LoadProgress
    {
        void status(const QString& text) override { lines << text; }
        QStringList lines;
    } progress;
    QueryContext context =
        sim.context({WaveformSimMeters::standard()}, "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    context.progress = &progress;
    PqView::run(context);
    const QStringList days = progress.lines.filter(QStringLiteral(", you have "));
    ASSERT_FALSE(days.isEmpty());
    for (const QString& line : days)
        EXPECT_TRUE(line.endsWith(QStringLiteral(" captures."))) << line.toStdString();
}

TEST(PqView, SplitMeterLinksItsPqFileWithItsCaptureFiles)
{
    WaveformSimMeters sim;
    checkPqView(sim, WaveformSimMeters::split(),
                WaveformSimMeters::splitLog(QStringLiteral("PQ_LOG")), QStringLiteral("Feeder 15"));
}

TEST(PqView, TwoMetersKeepTheirCapturesApartAndAnEmptyRangeShowsHeadings)
{
    WaveformSimMeters sim;
    QueryContext context = sim.context({WaveformSimMeters::standard(), WaveformSimMeters::talmo()},
                                       "2024-03-04 00:00:00", "2024-03-05 23:59:59");
    const ViewResult result = PqView::run(context);
    const GridTable& pq = result.grids.first();
    EXPECT_EQ(pq.rows.size(), filePqRows(WaveformSimMeters::standard().dbPath) +
                                  filePqRows(WaveformSimMeters::talmo().dbPath));
    int orphans = 0;
    for (const QVariantMap& keys : pq.rowKeys) {
        const bool orphan = keys.value(QStringLiteral("SWNumber")).toLongLong() == 9999;
        orphans += orphan;
        EXPECT_EQ(keys.value(QStringLiteral("CaptureMissing")).toBool(), orphan);
        if (orphan)
            continue;
        // Both meters number their captures from 1: only the record's own meter is listed.
        const GridTable waves =
            PqGrid::listWaveforms(context.scratch->database(), result.numbers, keys, false, {});
        for (const QVariantMap& wave : waves.rowKeys)
            EXPECT_EQ(wave.value(QStringLiteral("DeviceIndex")),
                      keys.value(QStringLiteral("DeviceIndex")));
    }
    EXPECT_EQ(orphans, 2);

    QueryContext empty =
        sim.context({WaveformSimMeters::standard()}, "2023-06-01 00:00:00", "2023-06-02 00:00:00");
    const ViewResult none = PqView::run(empty);
    EXPECT_TRUE(none.noData);
    ASSERT_EQ(none.grids.size(), 2);
    EXPECT_TRUE(none.grids.at(0).rows.isEmpty());
    EXPECT_TRUE(none.grids.at(1).rows.isEmpty());
    EXPECT_EQ(none.grids.at(0).columns, PqGrid::columns());
}
