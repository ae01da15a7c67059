// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli waveform on a simulated meter: the JSON header, the samples as CSV, and the
// exit codes of bad calls, a missing meter and a record the meter does not hold.
#include "support/TestEnvironment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

using lorvane::test::ProcessResult;
using lorvane::test::runProgram;

namespace {

const QString& meterPath()
{
    static const QTemporaryDir dir;
    static const QString path = [] {
        const QString out = dir.filePath(QStringLiteral("Board.DB"));
        const ProcessResult result =
            runProgram(QStringLiteral("lorvane-sim"),
                       {QStringLiteral("--out"), out, QStringLiteral("--days"), QStringLiteral("1"),
                        QStringLiteral("--interval-minutes"), QStringLiteral("15"),
                        QStringLiteral("--points"), QStringLiteral("4")});
        EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
        return out;
    }();
    return path;
}

ProcessResult waveform(const QStringList& arguments)
{
    return runProgram(QStringLiteral("lorvane-cli"),
                      QStringList{QStringLiteral("waveform")} + arguments);
}

} // namespace

TEST(WaveformCommand, HeaderAndSamplesOfOneCapture)
{
    const ProcessResult json =
        waveform({QStringLiteral("--meter"), meterPath(), QStringLiteral("--record"),
                  QStringLiteral("1"), QStringLiteral("--json")});
    ASSERT_EQ(json.exitCode, 0) << json.err.toStdString();
    const QJsonObject header = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_EQ(header.value(QStringLiteral("recCounter")).toInt(), 1);
    const int count = header.value(QStringLiteral("sampleCount")).toInt();
    ASSERT_GT(count, 0);
    const double v0 = header.value(QStringLiteral("rmsValues")).toArray().at(0).toDouble();

    const ProcessResult csv =
        waveform({QStringLiteral("--meter"), meterPath(), QStringLiteral("--record"),
                  QStringLiteral("1"), QStringLiteral("--samples"), QStringLiteral("csv")});
    ASSERT_EQ(csv.exitCode, 0) << csv.err.toStdString();
    const QStringList lines = csv.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), count + 1);
    const QStringList heading = lines.first().split(QLatin1Char(','));
    EXPECT_EQ(heading.size(), 16);
    EXPECT_EQ(heading.at(0), QStringLiteral("Time ms"));
    EXPECT_EQ(heading.at(1),
              header.value(QStringLiteral("channelLabels")).toArray().at(0).toString());
    // The pre-event cycle of Va has the row's steady RMS.
    const int rate = header.value(QStringLiteral("sampleRate")).toInt();
    double sum = 0.0;
    for (int i = 1; i <= rate; ++i) {
        const double va = lines.at(i).split(QLatin1Char(',')).at(1).toDouble();
        sum += va * va;
    }
    EXPECT_NEAR(std::sqrt(sum / rate), v0, 0.5);

    const ProcessResult text = waveform(
        {QStringLiteral("--meter"), meterPath(), QStringLiteral("--record"), QStringLiteral("1")});
    ASSERT_EQ(text.exitCode, 0);
    EXPECT_TRUE(text.out.contains(QStringLiteral("\nsampleCount: %1\n").arg(count)));
}

TEST(WaveformCommand, ExitCodesOfBadCalls)
{
    EXPECT_EQ(waveform({}).exitCode, 1);
    EXPECT_EQ(waveform({QStringLiteral("--meter"), meterPath()}).exitCode, 1);
    EXPECT_EQ(waveform({QStringLiteral("--meter"), meterPath(), QStringLiteral("--record"),
                        QStringLiteral("x")})
                  .exitCode,
              1);
    EXPECT_EQ(waveform({QStringLiteral("--meter"), meterPath(), QStringLiteral("--record"),
                        QStringLiteral("1"), QStringLiteral("--samples"), QStringLiteral("xml")})
                  .exitCode,
              1);
    EXPECT_EQ(waveform({QStringLiteral("--bogus")}).exitCode, 1);
    const ProcessResult missing =
        waveform({QStringLiteral("--meter"), QStringLiteral("/nonexistent/x.DB"),
                  QStringLiteral("--record"), QStringLiteral("1")});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_TRUE(missing.err.contains(QStringLiteral("file not found")));
    const ProcessResult absent = waveform({QStringLiteral("--meter"), meterPath(),
                                           QStringLiteral("--record"), QStringLiteral("99999")});
    EXPECT_EQ(absent.exitCode, 6);
    EXPECT_TRUE(absent.err.contains(QStringLiteral("99999")));
    EXPECT_TRUE(absent.out.isEmpty());
}
