// SPDX-License-Identifier: GPL-3.0-or-later
// Captures of simulated meters opened through the waveform view's scratch tables: the samples
// against the rows' RMS columns, the sag level and transient spike at the trigger, the sample
// counts of each meter family, the contiguous rows, and the capture files of a split meter.
#include "waveform/WaveformCapture.h"

#include "../query/WaveformSimMeters.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "query/views/waveform/WaveformView.h"
#include "support/RecordingProgress.h"
#include "waveform/CsvCaptureFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::WaveformSimMeters;

namespace {

/// The waveform view of one meter over both simulated days, and its scratch database.
struct OpenedQuery
{
    WaveformSimMeters sim;
    QueryContext context;
    QueryNumbers numbers;

    explicit OpenedQuery(const LogFileEntry& meter)
        : context(sim.context({meter}, "2024-03-04 00:00:00", "2024-03-05 23:59:59"))
    {
        context.tempLogRecSize = 1000000;
        numbers = WaveformView::run(context).numbers;
    }
    SqliteDatabase& db() { return context.scratch->database(); }
    /// RecCounter of the first row matching `where` (plain SQL on the query's waveform table).
    qint32 recCounter(const QString& where)
    {
        return db()
            .scalar(
                QStringLiteral("SELECT [RecCounter] FROM %1 WHERE %2 ORDER BY [RecCounter]")
                    .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("WaveformLog_"))),
                         where))
            .toInt();
    }
    /// Opens the first row matching `where` into `capture`; its `RecCounter`, 0 when it fails.
    qint32 open(WaveformCapture& capture, const QString& where, LoadProgress* progress = nullptr)
    {
        const qint32 rc = recCounter(where);
        EXPECT_GT(rc, 0) << where.toStdString();
        const bool opened = rc > 0 && capture.open(db(), numbers, rc, progress);
        EXPECT_TRUE(opened) << capture.message().toStdString();
        return opened ? rc : 0;
    }
};

double rms(const QVector<float>& samples, int from, int count)
{
    double sum = 0.0;
    for (int i = from; i < from + count; ++i)
        sum += double(samples.at(i)) * samples.at(i);
    return std::sqrt(sum / count);
}

} // namespace

TEST(WaveformCapture, PureSineMatchesItsRmsColumnsAndIsASine)
{
    OpenedQuery query(WaveformSimMeters::standard());
    // Periodic capture of setting 3: 16 samples per cycle, a pure sine on every channel.
    const qint32 rc = query.recCounter(QStringLiteral("[Index]=3 AND [TriggeredBy1]='Periodic'"));
    ASSERT_GT(rc, 0);
    WaveformCapture capture;
    RecordingProgress steps;
    ASSERT_TRUE(capture.open(query.db(), query.numbers, rc, &steps))
        << capture.message().toStdString();
    EXPECT_EQ(steps.texts.first(), QStringLiteral("Reading the Waveform data file"));
    const WaveformRecord& r = capture.record();
    const WaveformChannels& ch = capture.channels();
    EXPECT_EQ(r.sampleRate, 16);
    EXPECT_EQ(r.sampleCount, 1024);
    ASSERT_EQ(ch.sampleCount(), 1024);
    // 60 Hz base: one sample is 1/16 of 16.667 ms, rounded to two decimals; the step is
    // held in single precision, so sample 1023 reads 1065.62 where the exact step gives .63.
    EXPECT_NEAR(ch.time.at(1), 1.04, 1e-6);
    EXPECT_NEAR(ch.time.at(1023), 1065.62, 1e-3);
    for (int c = 0; c < 6; ++c) {
        const double expected = r.rmsValues[c < 3 ? c : c + 1];
        EXPECT_NEAR(rms(ch.samples[c], 0, 1024), expected, 0.01) << c;
        // Samples of a pure sine: amplitude * sin(angle + 2 pi i / 16), the angle from sample 0
        // and the quarter-cycle sample.
        const double amplitude = expected * std::sqrt(2.0);
        const double angle = std::atan2(ch.samples[c].at(0), ch.samples[c].at(4));
        for (int i = 0; i < 64; ++i)
            EXPECT_NEAR(ch.samples[c].at(i), amplitude * std::sin(angle + 2 * M_PI * i / 16), 0.01)
                << c << " " << i;
    }
    EXPECT_EQ(ch.labels[0], QStringLiteral("Van"));
    EXPECT_EQ(ch.labels[WaveformChannels::Input1], QStringLiteral("Breaker 52a"));
    EXPECT_EQ(ch.labels[WaveformChannels::Input1 + 6], QStringLiteral("Input 7"));
    // Input lanes: input 8 held at 1 sits in lane 14, input 2 toggles between 2 and 3.
    EXPECT_FLOAT_EQ(ch.samples[WaveformChannels::Input1 + 7].at(100), 15.0F);
    EXPECT_FLOAT_EQ(ch.samples[WaveformChannels::Input1 + 1].at(0), 2.0F);
    EXPECT_FLOAT_EQ(ch.samples[WaveformChannels::Input1 + 1].at(16), 3.0F);
    EXPECT_FALSE(r.hasNext1);
    EXPECT_FALSE(r.hasNext2);
}

TEST(WaveformCapture, SagLevelAfterTheTriggerAndContiguousRows)
{
    OpenedQuery query(WaveformSimMeters::standard());
    const qint32 rc =
        query.recCounter(QStringLiteral("[TriggeredBy1] LIKE '% Sag' AND [Contiguous]=0"));
    ASSERT_GT(rc, 0);
    WaveformCapture capture;
    ASSERT_TRUE(capture.open(query.db(), query.numbers, rc)) << capture.message().toStdString();
    const WaveformRecord& r = capture.record();
    ASSERT_EQ(r.sampleRate, 128);
    // Three rows of 1024: the trigger four cycles in; both following rows are found.
    EXPECT_EQ(r.timingPT, 512);
    ASSERT_TRUE(r.hasNext1);
    ASSERT_TRUE(r.hasNext2);
    EXPECT_EQ(r.nextRecCounter1, rc + 1);
    EXPECT_EQ(r.nextRecCounter2, rc + 2);
    const int channel = r.triggeredBy.startsWith(QLatin1String("Van"))   ? 0
                        : r.triggeredBy.startsWith(QLatin1String("Vbn")) ? 1
                                                                         : 2;
    const double before = rms(capture.channels().samples[channel], 0, 128);
    const double after = rms(capture.channels().samples[channel], r.timingPT, 128);
    EXPECT_NEAR(before, r.rmsValues[channel], 0.5);
    EXPECT_LT(after, before * 0.95);

    // The next row's voltages, loaded alone: the open capture's arrays stay as they are.
    const QVector<float> own = capture.channels().samples[0];
    WaveformChannels next;
    ASSERT_TRUE(capture.loadAdjacent(0, 0, next));
    EXPECT_EQ(next.sampleCount(), 1024);
    EXPECT_TRUE(next.recorded[0] && next.recorded[2]);
    EXPECT_FALSE(next.recorded[3]);
    EXPECT_GT(rms(next.samples[0], 0, 1024), 1.0);
    EXPECT_EQ(rms(next.samples[3], 0, 1024), 0.0);
    EXPECT_EQ(capture.channels().samples[0], own);
    WaveformChannels currents;
    ASSERT_TRUE(capture.loadAdjacent(1, 4, currents));
    EXPECT_TRUE(currents.recorded[3] && currents.recorded[5]);
    EXPECT_FALSE(currents.recorded[0]);
}

TEST(WaveformCapture, TransientSpikeAtTheTriggerSample)
{
    OpenedQuery query(WaveformSimMeters::standard());
    WaveformCapture capture;
    const qint32 rc = query.open(capture, QStringLiteral("[TriggeredBy1] LIKE '% Transient'"));
    ASSERT_GT(rc, 0);
    const WaveformRecord& r = capture.record();
    ASSERT_EQ(r.sampleRate, 512);
    EXPECT_EQ(r.sampleCount, 4096);
    const int channel = r.triggeredBy.startsWith(QLatin1String("Van"))   ? 0
                        : r.triggeredBy.startsWith(QLatin1String("Vbn")) ? 1
                                                                         : 2;
    const QVector<float>& wave = capture.channels().samples[channel];
    // The spike stands out against the same point one cycle earlier.
    const double jump = wave.at(r.timingPT) - wave.at(r.timingPT - 512);
    EXPECT_GT(std::abs(jump), 20.0);
    // Once the spike has died away the wave repeats cycle by cycle again.
    EXPECT_LT(std::abs(wave.at(4095) - wave.at(4095 - 512)), 1.0);
    // Format -1 at 512 carries no I_n.
    EXPECT_EQ(capture.channels().labels[WaveformChannels::In], QStringLiteral("In-N/A"));
}

TEST(WaveformCapture, TalmoSixteenPerCycleHas960SamplesOnA50HzAxis)
{
    OpenedQuery query(WaveformSimMeters::talmo());
    WaveformCapture capture;
    const qint32 rc =
        query.open(capture, QStringLiteral("[Index]=3 AND [TriggeredBy1]='Periodic'"));
    ASSERT_GT(rc, 0);
    EXPECT_EQ(capture.record().deviceTypeId, 0);
    EXPECT_EQ(capture.record().sampleCount, 960);
    EXPECT_EQ(capture.record().systemFrequency, 50);
    EXPECT_NEAR(capture.channels().time.at(1), 1.25, 1e-6);
    EXPECT_EQ(capture.channels().labels[WaveformChannels::In],
              QStringLiteral("In (N/A for Talmo)"));
}

TEST(WaveformCapture, SplitMeterCaptureFilesAndAMissingFile)
{
    OpenedQuery query(WaveformSimMeters::split());
    WaveformCapture capture;
    RecordingProgress progress;
    const qint32 rc = query.open(capture, QStringLiteral("[TriggeredBy1]='Periodic'"), &progress);
    ASSERT_GT(rc, 0);
    // The file's share and then the channels' share of the open, never backwards, to the end.
    ASSERT_GT(progress.fractions.size(), 8);
    EXPECT_TRUE(std::is_sorted(progress.fractions.cbegin(), progress.fractions.cend()));
    EXPECT_GT(progress.fractions.first(), -1.0) << "a capture file's length is known";
    EXPECT_DOUBLE_EQ(progress.fractions.last(), 1.0);
    EXPECT_EQ(progress.texts.filter(QStringLiteral("waveform samples for channel")).size(), 8);
    const WaveformRecord& r = capture.record();
    ASSERT_NE(capture.csvFile(), nullptr);
    EXPECT_FALSE(capture.csvFile()->transient());
    EXPECT_EQ(capture.csvFile()->channelCount(), 8);
    EXPECT_EQ(capture.csvFile()->channelId(3), 37);
    EXPECT_EQ(r.sampleCount, r.sampleRate == 256 ? 2048 : r.sampleRate == 512 ? 4096 : 1024);
    // Counts scaled back to volts and amps: the RMS columns within a count's rounding.
    for (int c = 0; c < 6; ++c)
        EXPECT_NEAR(rms(capture.channels().samples[c], 0, r.sampleCount),
                    r.rmsValues[c < 3 ? c : c + 1], 0.3)
            << c;

    WaveformCapture spike;
    const qint32 transient = query.open(spike, QStringLiteral("[TriggeredBy1] LIKE '% Transient'"));
    ASSERT_GT(transient, 0);
    ASSERT_NE(spike.csvFile(), nullptr);
    EXPECT_TRUE(spike.csvFile()->transient());
    EXPECT_TRUE(spike.csvFile()->factors().found());
    EXPECT_EQ(spike.csvFile()->transientBlocks().size(), 1);
    EXPECT_EQ(spike.csvFile()->transientBlocks().first().hsiTransition,
              QStringLiteral("0000000000000001"));
    EXPECT_EQ(spike.record().timingPT, spike.record().sampleRate);
    // Transient files step 1/61440 s per sample.
    EXPECT_NEAR(spike.channels().time.at(3), 0.049, 1e-6);

    // The row pointed at an empty capture file beside another meter path: the user's
    // message names the file, and the capture is gone.
    QTemporaryDir elsewhere;
    ASSERT_TRUE(QDir(elsewhere.path()).mkpath(QStringLiteral("csv")));
    const QString path = elsewhere.filePath(QStringLiteral("csv/EMPTY.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    query.db().execute(
        QStringLiteral("UPDATE %1 SET [DBPath]=?")
            .arg(SqlIdentifier::quote(query.numbers.table(QStringLiteral("LogDevices_")))),
        {elsewhere.filePath(QStringLiteral("meter.db"))});
    query.db().execute(
        QStringLiteral("UPDATE %1 SET [sample0]=? WHERE [RecCounter]=?")
            .arg(SqlIdentifier::quote(query.numbers.sliceTable(QStringLiteral("WaveformLog_")))),
        {QStringLiteral("csv\\EMPTY.csv"), rc});
    WaveformCapture failed;
    EXPECT_FALSE(failed.open(query.db(), query.numbers, rc));
    EXPECT_EQ(failed.failure(), WaveformCapture::Failure::FileMissing);
    EXPECT_EQ(failed.message(), QStringLiteral("File Error: The file ") + path +
                                    QStringLiteral(" has a length of zero or does not exist at "
                                                   "the specified location"));
    EXPECT_FALSE(failed.isOpen());
    EXPECT_FALSE(failed.open(query.db(), query.numbers, 999999));
    EXPECT_EQ(failed.failure(), WaveformCapture::Failure::RecordMissing);
}

TEST(WaveformCapture, Faults2And3DamagedCaptureFilesAndAbsurdCountsAreRefusedByName)
{
    OpenedQuery query(WaveformSimMeters::split());
    WaveformCapture good;
    const qint32 rc = query.open(good, QStringLiteral("[TriggeredBy1]='Periodic'"));
    ASSERT_GT(rc, 0);
    QFile original(good.record().csvPath);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray text = original.readAll();
    const QString sample1 = QStringLiteral("%1,%2,8").arg(good.record().sampleRate);
    const QString rows = QString::number(good.record().sampleCount);
    const qsizetype firstSample = text.indexOf("\r\n", text.indexOf("Waveform Samples Start")) + 2;
    // The first sample row with the cell of the first channel (the fifth) replaced.
    const auto withFirstSample = [&](const QByteArray& cell) {
        const qsizetype end = text.indexOf("\r\n", firstSample);
        QList<QByteArray> cells = text.mid(firstSample, end - firstSample).split(',');
        cells[4] = cell;
        return text.left(firstSample) + cells.join(',') + text.mid(end);
    };

    struct Damage
    {
        const char* what;
        QByteArray file;
        QString count;
        const char* said;
    };
    const Damage damages[] = {
        {"a count no file can hold", text, QStringLiteral("2000000000"),
         "the record gives 2000000000 samples a channel, but the file has room for"},
        {"a count of thirty million", text, QStringLiteral("30000000"), "has room for"},
        {"a count above the file's rows", text, QString::number(rows.toInt() + 50), "has room for"},
        {"line feeds only", QByteArray(text).replace("\r\n", "\n"), rows, "line feed alone"},
        {"truncated", text.left(firstSample + 200), rows, "has room for"},
        {"random bytes", QByteArray(4000, '\x9c') + "\x01\x02,\x03\r\n", rows,
         "no \"Waveform Samples Start\" row"},
        {"a sample that reads NaN", withFirstSample("nan"), rows,
         "holds \"nan\" as a sample of channel"},
        {"a sample that reads infinity", withFirstSample("-inf"), rows,
         "holds \"-inf\" as a sample"},
    };
    QTemporaryDir elsewhere;
    ASSERT_TRUE(QDir(elsewhere.path()).mkpath(QStringLiteral("csv")));
    query.db().execute(
        QStringLiteral("UPDATE %1 SET [DBPath]=?")
            .arg(SqlIdentifier::quote(query.numbers.table(QStringLiteral("LogDevices_")))),
        {elsewhere.filePath(QStringLiteral("meter.db"))});
    int n = 0;
    for (const Damage& damage : damages) {
        SCOPED_TRACE(damage.what);
        const QString name = QStringLiteral("csv/DAMAGED_%1.csv").arg(++n);
        QFile file(elsewhere.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(damage.file);
        file.close();
        query.db().execute(QStringLiteral("UPDATE %1 SET [sample0]=?, [sample1]=? WHERE "
                                          "[RecCounter]=?")
                               .arg(SqlIdentifier::quote(
                                   query.numbers.sliceTable(QStringLiteral("WaveformLog_")))),
                           {QString(name).replace(u'/', u'\\'), sample1.arg(damage.count), rc});
        WaveformCapture capture;
        EXPECT_FALSE(capture.open(query.db(), query.numbers, rc));
        EXPECT_EQ(capture.failure(), WaveformCapture::Failure::FileDamaged);
        EXPECT_TRUE(capture.message().startsWith(QStringLiteral("The capture file ") +
                                                 elsewhere.filePath(name) +
                                                 QStringLiteral(" of waveform record %1 ").arg(rc)))
            << capture.message().toStdString();
        EXPECT_TRUE(capture.message().contains(QLatin1String(damage.said)))
            << capture.message().toStdString();
        EXPECT_EQ(capture.channels().sampleCount(), 0);
    }
}

TEST(WaveformCapture, Faults10And11AbsentRmsValuesAndTheLabelsOfCaptureFiles)
{
    // Fault 10: a value the row does not hold read as 0 and never showed "N/A".
    OpenedQuery standard(WaveformSimMeters::standard());
    const qint32 row = standard.recCounter(QStringLiteral("[TriggeredBy1]='Periodic'"));
    standard.db().execute(
        QStringLiteral("UPDATE %1 SET [V8]=NULL WHERE [RecCounter]=?")
            .arg(SqlIdentifier::quote(standard.numbers.sliceTable(QStringLiteral("WaveformLog_")))),
        {row});
    WaveformCapture absent;
    ASSERT_TRUE(absent.open(standard.db(), standard.numbers, row));
    EXPECT_TRUE(std::isnan(absent.record().rmsValues[8]));
    EXPECT_FALSE(std::isnan(absent.record().rmsValues[0]));

    // Fault 11: a capture file fills Va .. I_n in file order; a recorded I_n read "In-N/A" by
    // the rule of the 512-sample database rows.
    OpenedQuery split(WaveformSimMeters::split());
    WaveformCapture file;
    ASSERT_GT(split.open(file, QStringLiteral("[SampleRate]=512 AND [TriggeredBy1]='Periodic'")),
              0);
    ASSERT_TRUE(file.channels().recorded[WaveformChannels::In]);
    EXPECT_EQ(file.channels().labels[WaveformChannels::In], QStringLiteral("In"));
    EXPECT_EQ(file.channels().labels[WaveformChannels::Vb], QStringLiteral("Vbn"));
}
