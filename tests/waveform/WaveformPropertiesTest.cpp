// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of the properties window: order, rows left out without data, wiring texts, RMS texts.
#include "waveform/WaveformProperties.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

WaveformRecord record()
{
    WaveformRecord r;
    r.hardwareName = QStringLiteral("Main Switchboard");
    r.wtTime = QDateTime(QDate(2024, 3, 4), QTime(7, 0, 1));
    r.wtMs = 250.5;
    r.triggeredBy = QStringLiteral("Van Sag");
    r.hookUp = 0x100; // wye; the higher bits are not the wiring
    r.deviceTypeId = 3;
    r.sampleRate = 128;
    r.sampleCount = 1024;
    r.pointsInCycle = 128;
    r.ptCtRatio = {QStringLiteral("480/120"), QString(), QStringLiteral("1000/5"), QString()};
    r.rmsValues.fill(0);
    r.rmsValues[0] = 120.456;
    r.rmsValues[8] = std::nan("");
    r.fullScale[0] = 120;
    r.fullScale[4] = 5;
    return r;
}

QStringList names(const QList<WaveformProperties::Row>& rows)
{
    QStringList out;
    for (const auto& row : rows)
        out << row.first;
    return out;
}

QString value(const QList<WaveformProperties::Row>& rows, const QString& name)
{
    for (const auto& row : rows) {
        if (row.first == name)
            return row.second;
    }
    return QStringLiteral("<missing>");
}

} // namespace

TEST(WaveformProperties, RowsInOrderOnlyWithData)
{
    const QList<WaveformProperties::Row> rows = WaveformProperties::rows(record(), std::nullopt);
    const QStringList n = names(rows);
    EXPECT_EQ(n.mid(0, 3), (QStringList{"Device", "Waveform Trigger Date/Time", "Cause"}));
    EXPECT_FALSE(n.contains("Waveform Start")) << "no start text, no row";
    EXPECT_FALSE(n.contains("PQ Start"));
    EXPECT_FALSE(n.contains("PT_aux Ratio"));
    EXPECT_LT(n.indexOf("Hookup"), n.indexOf("PT Ratio"));
    EXPECT_LT(n.indexOf("CT Ratio"), n.indexOf("Sampling Rate"));
    EXPECT_LT(n.indexOf("Capture Sequence"), n.indexOf("Van RMS"));
    EXPECT_EQ(n.last(), QStringLiteral("Full Scale: In"));
    EXPECT_EQ(value(rows, "Waveform Trigger Date/Time"),
              QStringLiteral("2024-03-04 07:00:01.2505"));
    EXPECT_EQ(value(rows, "Hookup"), QStringLiteral("Wye"));
    // Fault 10: the module row was missing.
    EXPECT_EQ(n.indexOf("B-Pack Module"), n.indexOf("Hookup") + 1);
    EXPECT_EQ(value(rows, "B-Pack Module"), QStringLiteral("Yes"));
    EXPECT_EQ(value(rows, "Capture Item(s)"), QStringLiteral("V a, b, c, I a, b, c, In"));
    EXPECT_EQ(value(rows, "Van RMS"), QStringLiteral("120.46"));
    EXPECT_EQ(value(rows, "In RMS"), QStringLiteral("N/A"));
    EXPECT_EQ(value(rows, "Contiguous"), QStringLiteral("No"));
    EXPECT_EQ(value(rows, "Full Scale: Vaux"), QStringLiteral("<missing>"));

    WavePqEvent pq;
    pq.start = QStringLiteral("2024-03-04 07:00:01.2505");
    pq.condition = QStringLiteral("SAG");
    const QStringList withPq = names(WaveformProperties::rows(record(), pq));
    EXPECT_EQ(withPq.indexOf("PQ Start"), n.indexOf("Waveform Trigger Date/Time") + 2);
    EXPECT_TRUE(withPq.contains("PQ Condition"));
    EXPECT_FALSE(withPq.contains("PQ End"));
    EXPECT_EQ(WaveformProperties::clipboardText({{"a", "1"}, {"b", "2"}}),
              QStringLiteral("a\t1\nb\t2\n"));
}

TEST(WaveformProperties, WiringDecidesTextsAndMeasuredQuantities)
{
    WaveformRecord delta = record();
    delta.hookUp = 2;
    EXPECT_EQ(WaveformProperties::hookupText(delta.hookUp, 3), QStringLiteral("Delta, 2 CTs"));
    EXPECT_EQ(WaveformProperties::hookupText(1, 3), QStringLiteral("Delta, 3 CTs"));
    EXPECT_EQ(WaveformProperties::hookupText(1, 0), QStringLiteral("Delta, 2 CTs"));
    EXPECT_EQ(WaveformProperties::hookupText(6, 3), QStringLiteral("45S, Wye, 2 CTs"));
    EXPECT_EQ(WaveformProperties::hookupText(9, 3), QString());
    EXPECT_EQ(WaveformProperties::hookupPicture(4, 3), QStringLiteral("WDeltaB"));
    EXPECT_EQ(WaveformProperties::rmsText(delta, 8), QStringLiteral("Not measured"));
    EXPECT_FALSE(names(WaveformProperties::rows(delta, std::nullopt)).contains("Full Scale: In"));
    WaveformRecord twoCts = record();
    twoCts.hookUp = 6;
    EXPECT_EQ(WaveformProperties::rmsText(twoCts, 5), QStringLiteral("Not measured"));
    EXPECT_EQ(WaveformProperties::rmsText(twoCts, 4), QStringLiteral("0.00"));

    WaveformRecord fast = record();
    fast.sampleRate = 512;
    fast.recordFormat = 5;
    EXPECT_EQ(WaveformProperties::captureItems(fast), QStringLiteral("Ib"));
    fast.recordFormat = 3;
    EXPECT_EQ(WaveformProperties::captureItems(fast), QString());
    fast.sampleRate = 256;
    fast.recordFormat = 1;
    EXPECT_EQ(WaveformProperties::captureItems(fast), QStringLiteral("I a, b, c"));
    fast.recordFormat = -1;
    EXPECT_EQ(WaveformProperties::captureItems(fast), QStringLiteral("V a, b, c, I a, b, c"));
}
