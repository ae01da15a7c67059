// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli waveform --stats and --interharmonic on the periodic captures of a simulated
// meter: the 64-sample capture with a 5 % tone at 1.5 x the fundamental (setting 5, a delta
// meter with two CTs, one contiguous row after it) and the 512-sample one of setting 7.
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::SqliteDatabase;
using lorvane::test::ProcessResult;
using lorvane::test::runProgram;

namespace {

struct Meter
{
    QString path;
    QString tone64;  // RecCounter of the first row of the 64-sample tone capture
    QString tone512; // the same for the 512-sample one
};

const Meter& meter()
{
    static const QTemporaryDir dir;
    static const Meter m = [] {
        Meter out;
        out.path = dir.filePath(QStringLiteral("Tones.DB"));
        const ProcessResult result =
            runProgram(QStringLiteral("lorvane-sim"),
                       {QStringLiteral("--out"), out.path, QStringLiteral("--days"),
                        QStringLiteral("1"), QStringLiteral("--interval-minutes"),
                        QStringLiteral("15"), QStringLiteral("--points"), QStringLiteral("4")});
        EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
        SqliteDatabase db(out.path, SqliteDatabase::Mode::ReadOnly);
        for (const QString& table : db.tables()) {
            if (!table.startsWith(QLatin1String("WaveformLog_")))
                continue;
            const QString sql = QStringLiteral("SELECT min(RecCounter) FROM [%1] WHERE "
                                               "[Index] = ? AND TriggeredBy1 = 'Periodic'")
                                    .arg(table);
            for (auto [index, target] : {std::pair{5, &out.tone64}, std::pair{7, &out.tone512}}) {
                const QVariant found = db.scalar(sql, {index});
                if (!found.isNull() && target->isEmpty())
                    *target = found.toString();
            }
        }
        return out;
    }();
    return m;
}

ProcessResult waveform(const QString& record, const QStringList& arguments)
{
    return runProgram(QStringLiteral("lorvane-cli"),
                      QStringList{QStringLiteral("waveform"), QStringLiteral("--meter"),
                                  meter().path, QStringLiteral("--record"), record} +
                          arguments);
}

QJsonObject json(const ProcessResult& result)
{
    return QJsonDocument::fromJson(result.out.toUtf8()).object();
}

} // namespace

TEST(WaveformAnalysisCommand, InterharmonicToneLandsInTheFirstGroupAcrossRowBoundaries)
{
    ASSERT_FALSE(meter().tone64.isEmpty());
    ASSERT_FALSE(meter().tone512.isEmpty());
    // Ia of the 64-sample capture, window from sample 600: 424 samples of this row and 345 of
    // the contiguous one. A 5 % tone at 90 Hz gives 0.25 in the group 60 to 120 Hz.
    ProcessResult run = waveform(meter().tone64, {QStringLiteral("--interharmonic"),
                                                  QStringLiteral("3"), QStringLiteral("--start"),
                                                  QStringLiteral("600"), QStringLiteral("--json")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    QJsonObject out = json(run);
    EXPECT_EQ(out.value(QStringLiteral("windowLength")).toInt(), 769);
    EXPECT_EQ(out.value(QStringLiteral("frequency")).toInt(), 60);
    QJsonArray groups = out.value(QStringLiteral("groups")).toArray();
    ASSERT_EQ(groups.size(), 30);
    EXPECT_EQ(groups.at(0).toObject().value(QStringLiteral("label")).toString(), "60 to 120");
    EXPECT_NEAR(groups.at(0).toObject().value(QStringLiteral("percent")).toDouble(), 0.25, 0.005);
    EXPECT_NEAR(groups.at(1).toObject().value(QStringLiteral("percent")).toDouble(), 0.0, 0.005);
    const QJsonArray spectrum = out.value(QStringLiteral("spectrum")).toArray();
    ASSERT_EQ(spectrum.size(), 384);
    EXPECT_NEAR(spectrum.at(12).toDouble(), 100.0, 0.01);
    EXPECT_NEAR(spectrum.at(18).toDouble(), 5.0, 0.05);

    // The 512-sample capture crosses its row boundary at 4096; the text form names the graph.
    run = waveform(meter().tone512, {QStringLiteral("--interharmonic"), QStringLiteral("0"),
                                     QStringLiteral("--start"), QStringLiteral("0")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_GT(lines.size(), 3);
    EXPECT_EQ(lines.at(0), "IEC-1000-2-1[1] Interharmonic Spectrum (60Hz Window)");
    EXPECT_EQ(lines.at(1), "60 to 120: 0.2500");
    EXPECT_EQ(lines.at(2), "120 to 180: 0.0000");
    EXPECT_TRUE(lines.contains(QStringLiteral("90 Hz: 5.0000")));

    // The 50 Hz choice keeps the 60 Hz length and takes bin 10 as the fundamental.
    run = waveform(meter().tone64,
                   {QStringLiteral("--interharmonic"), QStringLiteral("3"),
                    QStringLiteral("--start"), QStringLiteral("0"), QStringLiteral("--system"),
                    QStringLiteral("50"), QStringLiteral("--json")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    out = json(run);
    EXPECT_EQ(out.value(QStringLiteral("windowLength")).toInt(), 769);
    groups = out.value(QStringLiteral("groups")).toArray();
    EXPECT_EQ(groups.at(0).toObject().value(QStringLiteral("label")).toString(), "50 to 100");
}

TEST(WaveformAnalysisCommand, StatisticsOfOneCycle)
{
    const ProcessResult run = waveform(
        meter().tone512, {QStringLiteral("--stats"), QStringLiteral("0"), QStringLiteral("--at"),
                          QStringLiteral("10"), QStringLiteral("--json")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QJsonObject out = json(run);
    // 10 ms at 512 samples a 60 Hz cycle is sample 307.2 -> 307.
    EXPECT_EQ(out.value(QStringLiteral("cursor")).toInt(), 307);
    EXPECT_EQ(out.value(QStringLiteral("start")).toInt(), 306);
    EXPECT_EQ(out.value(QStringLiteral("end")).toInt(), 306 + 511);
    EXPECT_TRUE(out.value(QStringLiteral("kFactor")).isNull()); // "N/A" on a voltage
    const QJsonArray harmonics = out.value(QStringLiteral("harmonics")).toArray();
    ASSERT_EQ(harmonics.size(), 256);
    EXPECT_EQ(harmonics.at(0).toDouble(), 0.0);
    EXPECT_NEAR(harmonics.at(1).toDouble(), 100.0, 1e-4);
    // Numbers, not the window's texts ("1.50k").
    ASSERT_TRUE(out.value(QStringLiteral("rms")).isDouble());
    const double rms = out.value(QStringLiteral("rms")).toDouble();
    const double peak = out.value(QStringLiteral("peak")).toDouble();
    EXPECT_GT(rms, 0.0);
    EXPECT_NEAR(out.value(QStringLiteral("crest")).toDouble(), peak / rms, 1e-6);
    EXPECT_TRUE(out.value(QStringLiteral("thd")).isDouble());

    const ProcessResult text =
        waveform(meter().tone64, {QStringLiteral("--stats"), QStringLiteral("4"),
                                  QStringLiteral("--at"), QStringLiteral("1000")});
    ASSERT_EQ(text.exitCode, 0) << text.err.toStdString();
    const QStringList lines = text.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 5 + 32);
    EXPECT_TRUE(lines.at(0).startsWith(QLatin1String("RMS:      ")));
    EXPECT_TRUE(lines.at(3).startsWith(QLatin1String("%THD:   ")));
    EXPECT_NE(lines.at(4), "K-Fac:    N/A"); // a current
    EXPECT_EQ(lines.at(6), "Harmonic 1: 100.00%");
}

TEST(WaveformAnalysisCommand, RefusalsAndBadOptions)
{
    ProcessResult run =
        waveform(meter().tone64, {QStringLiteral("--interharmonic"), QStringLiteral("7")});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_TRUE(run.err.contains(QStringLiteral("Invalid waveform channel. Should be volt or "
                                                "current.")))
        << run.err.toStdString();
    // Past sample 255 the 64-sample window needs the contiguous row; the capture of the
    // pure 16-sample sine (the first periodic row) has none.
    run = waveform(QStringLiteral("1"), {QStringLiteral("--interharmonic"), QStringLiteral("0"),
                                         QStringLiteral("--start"), QStringLiteral("900")});
    EXPECT_EQ(run.exitCode, 6);
    EXPECT_TRUE(run.err.contains(QStringLiteral("You do no have enough waveform captures")));
    for (const QStringList& bad :
         {QStringList{QStringLiteral("--stats"), QStringLiteral("15")},
          QStringList{QStringLiteral("--stats"), QStringLiteral("0"), QStringLiteral("--at"),
                      QStringLiteral("-1")},
          QStringList{QStringLiteral("--interharmonic"), QStringLiteral("0"),
                      QStringLiteral("--system"), QStringLiteral("55")},
          QStringList{QStringLiteral("--stats"), QStringLiteral("0"),
                      QStringLiteral("--interharmonic"), QStringLiteral("0")}}) {
        run = waveform(meter().tone64, bad);
        EXPECT_EQ(run.exitCode, 1) << bad.join(' ').toStdString();
    }
}
