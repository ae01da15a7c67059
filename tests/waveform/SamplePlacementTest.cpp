// SPDX-License-Identifier: GPL-3.0-or-later
// Placement of the sample columns for every rate and record format, the delta wirings'
// reconstruction, labels, "N/A" columns, sample counts and the time axis asymmetry.
#include "waveform/SamplePlacement.h"

#include "waveform/WaveformChannels.h"
#include "waveform/WaveformRecord.h"
#include "waveform/WaveformRecordLoader.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

/// A column of `count` values `base + i`, CR LF separated as some files hold them.
QString column(int count, double base)
{
    QStringList values;
    for (int i = 0; i < count; ++i)
        values << QString::number(base + i);
    return values.join(QStringLiteral("\r\n"));
}

WaveformRecord record(int rate, int format, int hookUp = 0, int deviceType = 3)
{
    WaveformRecord r;
    r.sampleRate = qint16(rate);
    r.recordFormat = format;
    r.hookUp = hookUp;
    r.deviceTypeId = deviceType;
    r.sampleCount = WaveformRecordLoader::sampleCount(rate, deviceType, QString());
    return r;
}

} // namespace

TEST(SamplePlacement, TargetsOfEveryRateAndFormat)
{
    using T = SamplePlacement::Target;
    const auto is = [](T t, int channel, int offset) {
        return t.channel == channel && (channel < 0 || t.offset == offset);
    };
    for (int rate : {16, 32, 64, 128}) {
        for (int c = 0; c < 15; ++c)
            EXPECT_TRUE(is(SamplePlacement::target(rate, 0, 3, c), c, 0)) << rate << " " << c;
    }
    // Device type 4 places every rate like 128.
    EXPECT_TRUE(is(SamplePlacement::target(512, 0, 4, 9), 9, 0));
    for (int c = 0; c < 6; ++c) {
        EXPECT_TRUE(is(SamplePlacement::target(256, -1, 3, c), c, 0));
        EXPECT_TRUE(is(SamplePlacement::target(512, -1, 3, c), c, 0));
        EXPECT_TRUE(is(SamplePlacement::target(256, 0, 3, c), c / 2, (c % 2) * 1024));
        EXPECT_TRUE(is(SamplePlacement::target(256, 1, 3, c), 3 + c / 2, (c % 2) * 1024));
    }
    EXPECT_TRUE(is(SamplePlacement::target(256, -1, 3, 6), -1, 0));
    EXPECT_TRUE(is(SamplePlacement::target(256, 2, 3, 0), -1, 0));
    for (int c = 0; c < 4; ++c) {
        for (int format : {0, 1, 2})
            EXPECT_TRUE(is(SamplePlacement::target(512, format, 3, c), format, c * 1024));
        for (int format : {4, 5, 6})
            EXPECT_TRUE(is(SamplePlacement::target(512, format, 3, c), format - 1, c * 1024));
        EXPECT_TRUE(is(SamplePlacement::target(512, 7, 3, c), 6, c * 1024));
        EXPECT_TRUE(is(SamplePlacement::target(512, 3, 3, c), -1, 0));
    }
    EXPECT_TRUE(is(SamplePlacement::target(512, 0, 3, 4), -1, 0));
}

TEST(SamplePlacement, BlocksOfWideRatesAndUntouchedChannels)
{
    // 256, format 0: voltages in two halves; currents stay zero until a format 1 row.
    WaveformRecord r = record(256, 0);
    WaveformChannels ch;
    ch.resize(r.sampleCount);
    std::array<QString, 15> columns;
    for (int c = 0; c < 6; ++c)
        columns[c] = column(1024, c * 10000.0);
    SamplePlacement::place(r, columns, -1, ch);
    EXPECT_FLOAT_EQ(ch.samples[0].at(5), 5.0F);
    EXPECT_FLOAT_EQ(ch.samples[0].at(1024 + 5), 10005.0F);
    EXPECT_FLOAT_EQ(ch.samples[2].at(2047), 51023.0F);
    EXPECT_FALSE(ch.recorded[3]);
    EXPECT_FLOAT_EQ(ch.samples[3].at(5), 0.0F);

    // 512, format 7: I_n in four blocks; "N/A" and empty columns leave channels alone.
    r = record(512, 7);
    ch.resize(r.sampleCount);
    ch.samples[0].fill(9.0F);
    columns = {};
    for (int c = 0; c < 4; ++c)
        columns[c] = column(1024, c * 1000.0);
    SamplePlacement::place(r, columns, -1, ch);
    EXPECT_FLOAT_EQ(ch.samples[6].at(3 * 1024 + 1), 3001.0F);
    EXPECT_FLOAT_EQ(ch.samples[0].at(7), 9.0F);

    r = record(128, -1);
    ch.resize(r.sampleCount);
    ch.samples[3].fill(7.0F);
    columns = {};
    columns[0] = column(1024, 0.5);
    columns[3] = QStringLiteral("N/A");
    columns[7] =
        column(1024, 0.0).replace(QRegularExpression(QStringLiteral("\\d+")), QStringLiteral("1"));
    columns[8] = QStringLiteral("0\r1\r0");
    SamplePlacement::place(r, columns, -1, ch);
    EXPECT_FLOAT_EQ(ch.samples[3].at(100), 7.0F);
    EXPECT_FALSE(ch.recorded[3]);
    EXPECT_FLOAT_EQ(ch.samples[0].at(3), 3.5F);
    EXPECT_FLOAT_EQ(ch.samples[WaveformChannels::Input1].at(10), 1.0F);
    EXPECT_FLOAT_EQ(ch.samples[WaveformChannels::Input1 + 1].at(1), 3.0F);
    EXPECT_FLOAT_EQ(ch.samples[WaveformChannels::Input1 + 1].at(0), 2.0F);
}

TEST(SamplePlacement, DeltaWiringsReconstructAndPartialLoadsKeepTheirGroup)
{
    std::array<QString, 15> columns;
    columns[0] = QStringLiteral("10\r20");
    columns[1] = QStringLiteral("3\r4");
    columns[2] = QStringLiteral("1\r1");
    columns[3] = QStringLiteral("5\r6");
    columns[4] = QStringLiteral("N/A");
    columns[5] = QStringLiteral("-2\r-1");
    for (int hookUp : {1, 2, 4, 0x102}) {
        const WaveformRecord r = record(64, -1, hookUp);
        WaveformChannels ch;
        ch.resize(r.sampleCount);
        SamplePlacement::place(r, columns, -1, ch);
        EXPECT_FLOAT_EQ(ch.samples[0].at(0), 7.0F) << hookUp;   // A - B
        EXPECT_FLOAT_EQ(ch.samples[1].at(1), 3.0F) << hookUp;   // B - C
        EXPECT_FLOAT_EQ(ch.samples[2].at(1), -19.0F) << hookUp; // C - A
        const bool twoCts = (hookUp & 0xFF) == 2;
        EXPECT_FLOAT_EQ(ch.samples[4].at(0), twoCts ? -3.0F : 0.0F) << hookUp;
        EXPECT_EQ(ch.recorded[4], twoCts);
        EXPECT_EQ(SamplePlacement::labels(r)[4],
                  twoCts ? QStringLiteral("Ib (reconstructed)") : QStringLiteral("Ib"));
        EXPECT_EQ(SamplePlacement::labels(r)[0], QStringLiteral("Vab"));
    }
    // Wye: straight through.
    WaveformRecord wye = record(64, -1, 0);
    WaveformChannels ch;
    ch.resize(wye.sampleCount);
    SamplePlacement::place(wye, columns, -1, ch);
    EXPECT_FLOAT_EQ(ch.samples[0].at(1), 20.0F);
    EXPECT_EQ(SamplePlacement::labels(wye)[0], QStringLiteral("Van"));

    // A partial load of the current group on two CTs: voltages untouched, Ib reconstructed.
    WaveformRecord partial = record(64, -1, 2);
    ch.resize(partial.sampleCount);
    ch.recorded.fill(false);
    SamplePlacement::place(partial, columns, 3, ch);
    EXPECT_FALSE(ch.recorded[0]);
    EXPECT_FLOAT_EQ(ch.samples[0].at(0), 0.0F);
    EXPECT_FLOAT_EQ(ch.samples[4].at(1), -5.0F);
}

TEST(SamplePlacement, LabelsOfWideRatesWiringSixAndTalmo)
{
    WaveformRecord r = record(512, 0, 1);
    auto labels = SamplePlacement::labels(r);
    EXPECT_EQ(labels[0], QStringLiteral("Vab"));
    EXPECT_EQ(labels[1], QStringLiteral("Vbc-N/A"));
    EXPECT_EQ(labels[4], QStringLiteral("Ib-N/A"));
    EXPECT_EQ(labels[6], QStringLiteral("In-N/A"));
    r = record(128, -1, 6);
    labels = SamplePlacement::labels(r);
    EXPECT_EQ(labels[3], QStringLiteral("Ia"));
    EXPECT_EQ(labels[4], QStringLiteral("N/A"));
    r = record(128, -1, 0, 0);
    EXPECT_EQ(SamplePlacement::labels(r)[6], QStringLiteral("In (N/A for Talmo)"));
    EXPECT_EQ(SamplePlacement::labels(r)[WaveformChannels::Input1 + 2], QStringLiteral("Input 3"));
}

TEST(SamplePlacement, SampleCountsAndTimeAxes)
{
    EXPECT_EQ(WaveformRecordLoader::sampleCount(16, 0, {}), 960);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(16, 3, {}), 1024);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(128, 0, {}), 1024);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(256, 3, {}), 2048);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(512, 3, {}), 4096);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(512, 4, {}), 2048);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(16, 4, {}), 2048);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(128, 5, QStringLiteral("1024,4096,8")), 4096);
    EXPECT_EQ(WaveformRecordLoader::sampleCount(128, 5, QStringLiteral("garbage")), 0);
}
