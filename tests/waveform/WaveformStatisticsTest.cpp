// SPDX-License-Identifier: GPL-3.0-or-later
#include "waveform/WaveformStatistics.h"

#include "waveform/EngineeringNumberText.h"
#include "waveform/WaveformChannels.h"
#include "waveform/WaveformRecord.h"
#include "waveform/WaveformTimeBase.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

using namespace lorvane;

namespace {

struct Harmonic
{
    int order;
    double percent;
};

// A capture of `cycles` cycles at `rate` samples a cycle whose channels 0 to 6 all hold the
// same wave: amplitude `amplitude` plus the given harmonics in percent of it.
struct Capture
{
    WaveformRecord record;
    WaveformChannels channels;

    Capture(int rate, int cycles, double amplitude, std::initializer_list<Harmonic> harmonics)
    {
        record.sampleRate = static_cast<qint16>(rate);
        record.pointsInCycle = rate;
        record.pointsInCycle16 = static_cast<qint16>(rate);
        record.sampleCount = rate * cycles;
        record.hardwareName = QStringLiteral("Meter 7");
        channels.resize(record.sampleCount);
        const char* names[] = {"Van", "Vbn", "Vcn", "Ia", "Ib", "Ic", "In"};
        for (int c = 0; c < WaveformChannels::analogCount; ++c) {
            channels.labels[static_cast<std::size_t>(c)] = QString::fromLatin1(names[c]);
            for (int i = 0; i < record.sampleCount; ++i) {
                const double t = 2 * std::numbers::pi * i / rate;
                double v = amplitude * std::sin(t);
                for (const Harmonic& h : harmonics)
                    v += amplitude * h.percent / 100 * std::sin(h.order * t + 0.7);
                channels.samples[static_cast<std::size_t>(c)][i] = static_cast<float>(v);
            }
        }
    }
    double stepMs() const { return WaveformTimeBase::stepMs(record); }
};

} // namespace

TEST(WaveformStatistics, PureSineOnVoltageAndCurrentChannels)
{
    const int n = 128;
    const double amplitude = 325.0;
    const Capture capture(n, 8, amplitude, {});
    const WaveformStatistics statistics(capture.record, capture.channels);
    // Cursor at sample 40: the pass covers N - 1 samples of a whole cycle over a divisor of N.
    const auto current =
        statistics.computeChannelStatistics(WaveformChannels::Ia, 40 * capture.stepMs());
    ASSERT_TRUE(current.rmsValid);
    EXPECT_EQ(current.window.start, 39);
    EXPECT_EQ(current.window.end, 39 + n - 1);
    const double expectedRms = amplitude / std::sqrt(2.0) * std::sqrt((n - 1.0) / n);
    // One sample of the cycle is left out: at most A^2 / (2N) off in the square.
    EXPECT_NEAR(current.rms, expectedRms, amplitude / std::sqrt(2.0) / n);
    EXPECT_NEAR(current.peak, amplitude, 1e-3);
    EXPECT_EQ(current.peakText, "325.00");
    EXPECT_EQ(current.thdText, ".00");
    EXPECT_TRUE(current.harmonics.kFactorValid);
    EXPECT_NEAR(current.harmonics.kFactor, 1.0, 1e-9);
    EXPECT_EQ(current.kFactorText, "1.00");
    const double crest = std::stod(current.crestText.toStdString());
    EXPECT_NEAR(crest, amplitude / current.rms, 0.006);

    const auto voltage =
        statistics.computeChannelStatistics(WaveformChannels::Va, 40 * capture.stepMs());
    EXPECT_EQ(voltage.rmsText, current.rmsText);
    EXPECT_EQ(voltage.thdText, ".00");
    EXPECT_EQ(voltage.kFactorText, "N/A");
    EXPECT_FALSE(voltage.harmonics.kFactorValid);

    // The bar graph of that cycle: N / 2 bars, bin 0 forced to 0, the fundamental at 100.
    const auto& graph = current.harmonics.graph;
    ASSERT_EQ(graph.y.size(), n / 2);
    EXPECT_EQ(graph.y[0], 0.0);
    EXPECT_NEAR(graph.y[1], 100.0, 1e-4);
    EXPECT_EQ(graph.labels.at(5), "5");
    EXPECT_EQ(graph.x.last(), n / 2 - 1);
    EXPECT_EQ(graph.yTitle, "%");
    EXPECT_EQ(graph.xTitle, "Harmonics");
    EXPECT_EQ(graph.subsetTitle, "Ia - Meter 7");
}

TEST(WaveformStatistics, HarmonicsGiveThdAndKFactorAndSmallOnesAreSuppressed)
{
    // 4 % of the 3rd and 3 % of the 5th: THD 5 %; the 7th at 0.19 % is under the line.
    const Capture capture(64, 16, 10.0, {{3, 4.0}, {5, 3.0}, {7, 0.19}});
    for (const auto method :
         {HarmonicSpectrum::Method::Fast, HarmonicSpectrum::Method::Quadratic}) {
        const WaveformStatistics statistics(capture.record, capture.channels, method);
        const auto harmonics = statistics.computeHarmonics(WaveformChannels::Ib, 100);
        ASSERT_TRUE(harmonics.valid);
        EXPECT_NEAR(harmonics.percent[3], 4.0, 1e-4);
        EXPECT_NEAR(harmonics.percent[5], 3.0, 1e-4);
        EXPECT_EQ(harmonics.percent[7], 0.0F);
        EXPECT_EQ(harmonics.graph.y[7], 0.0);
        EXPECT_NEAR(harmonics.thd, 5.0, 1e-4);
        EXPECT_EQ(harmonics.thdText, "5.00");
        // K = sum (h^2 P_h^2) / (THD^2 + 100^2) with the fundamental's own 100^2.
        const double k = (100.0 * 100 + 9 * 16 + 25 * 9) / (25 + 100.0 * 100);
        EXPECT_NEAR(harmonics.kFactor, k, 1e-6);
        EXPECT_EQ(harmonics.kFactorText, "1.03");
    }
    // A 0.21 % harmonic stays and counts.
    const Capture above(64, 16, 10.0, {{7, 0.21}});
    const auto kept =
        WaveformStatistics(above.record, above.channels).computeHarmonics(WaveformChannels::Ia, 0);
    EXPECT_NEAR(kept.percent[7], 0.21, 1e-4);
    EXPECT_NEAR(kept.thd, 0.21, 1e-4);
    EXPECT_EQ(kept.thdText, ".21");
}

TEST(WaveformStatistics, CursorWindowAndTheFirstSampleShortfall)
{
    // A constant channel makes the count of squared samples exact: RMS = c sqrt(used / N).
    Capture capture(64, 16, 0.0, {});
    capture.channels.samples[WaveformChannels::In].fill(2.0F);
    const WaveformStatistics statistics(capture.record, capture.channels);
    const double step = capture.stepMs();
    const auto first = statistics.computeChannelStatistics(WaveformChannels::In, 0);
    EXPECT_EQ(first.window.start, 0);
    EXPECT_NEAR(first.rms, 2.0 * std::sqrt(62.0 / 64.0), 1e-6);
    const auto later = statistics.computeChannelStatistics(WaveformChannels::In, 10 * step);
    EXPECT_EQ(later.window.start, 9);
    EXPECT_NEAR(later.rms, 2.0 * std::sqrt(63.0 / 64.0), 1e-6);
    EXPECT_EQ(later.peakText, "2.00");
    EXPECT_EQ(later.crestText, "1.01"); // 2 / 1.98431

    // Half-sample positions round to even.
    EXPECT_EQ(statistics.window(2.5 * step).cursor, 2);
    EXPECT_EQ(statistics.window(3.5 * step).cursor, 4);
    // A click on the last sample moves the cursor back so that one cycle fits.
    const auto last = statistics.window((1024 - 1) * step);
    EXPECT_TRUE(last.moved);
    EXPECT_EQ(last.cursor, 1024 - 64 + 1);
    EXPECT_EQ(last.start, 1024 - 64);
    EXPECT_EQ(last.end, 1023);
    EXPECT_FALSE(statistics.window(100 * step).moved);
    EXPECT_EQ(statistics.window(-50).start, 0);
}

TEST(WaveformStatistics, FailuresReadNotAvailable)
{
    // A flat channel has no fundamental: zero bars labelled 0, 1, 2 ... and no THD or K.
    Capture capture(32, 32, 0.0, {});
    const WaveformStatistics statistics(capture.record, capture.channels);
    const auto flat = statistics.computeChannelStatistics(WaveformChannels::Ic, 5);
    EXPECT_EQ(flat.rmsText, "0.00");
    EXPECT_EQ(flat.crestText, "N/A");
    EXPECT_EQ(flat.thdText, "N/A");
    EXPECT_EQ(flat.kFactorText, "N/A");
    EXPECT_FALSE(flat.harmonics.valid);
    ASSERT_EQ(flat.harmonics.graph.labels.size(), 16);
    EXPECT_EQ(flat.harmonics.graph.labels.at(15), "15");
    for (double y : flat.harmonics.graph.y)
        EXPECT_EQ(y, 0.0);

    // Inputs get RMS and peak but no harmonics; a channel out of range and an empty capture
    // get nothing.
    capture.channels.samples[8].fill(3.0F);
    const auto input = statistics.computeChannelStatistics(8, 100);
    EXPECT_EQ(input.peakText, "3.00");
    EXPECT_EQ(input.thdText, "N/A");
    for (const auto& none :
         {statistics.computeChannelStatistics(15, 0),
          WaveformStatistics(capture.record, WaveformChannels()).computeChannelStatistics(0, 0)}) {
        EXPECT_FALSE(none.rmsValid);
        EXPECT_EQ(WaveformStatistics::annotationText(none),
                  "RMS:      N/A\nPeak:     N/A\nCrest:    N/A\n%THD:   N/A\nK-Fac:    N/A");
    }
    EXPECT_FALSE(statistics.computeHarmonics(WaveformChannels::Va, 1024 - 31).valid);
}

TEST(WaveformStatistics, EngineeringTextsAndAnnotation)
{
    EXPECT_EQ(EngineeringNumberText::withLeadingZero(1500), "1.50k");
    EXPECT_EQ(EngineeringNumberText::withLeadingZero(0.5), "0.50");
    EXPECT_EQ(EngineeringNumberText::withLeadingZero(999.5), "999.50");
    EXPECT_EQ(EngineeringNumberText::withLeadingZero(2.5e6), "2.50M");
    EXPECT_EQ(EngineeringNumberText::withLeadingZero(7.25e9), "7.25G");
    EXPECT_EQ(EngineeringNumberText::withoutLeadingZero(0), ".00");
    EXPECT_EQ(EngineeringNumberText::withoutLeadingZero(0.5), ".50");
    EXPECT_EQ(EngineeringNumberText::withoutLeadingZero(12.345), "12.35");
    EXPECT_EQ(EngineeringNumberText::withoutLeadingZero(1000), "1.00k");
    EXPECT_EQ(EngineeringNumberText::withoutLeadingZero(-0.25), "-.25");
    EXPECT_EQ(EngineeringNumberText::withLeadingZero(std::nan("")), "N/A");

    WaveformStatistics::ChannelStatistics values;
    values.rmsText = "229.81";
    values.peakText = "325.00";
    values.crestText = "1.41";
    values.thdText = ".00";
    values.kFactorText = "N/A";
    EXPECT_EQ(WaveformStatistics::annotationText(values),
              "RMS:      229.81\nPeak:     325.00\nCrest:    1.41\n%THD:   .00\nK-Fac:    N/A");
    EXPECT_EQ(WaveformStatistics::hotSpotText(3, 4.004), "Harmonic 3: 4.00%");
}
