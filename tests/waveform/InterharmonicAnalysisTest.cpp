// SPDX-License-Identifier: GPL-3.0-or-later
#include "waveform/InterharmonicAnalysis.h"

#include "support/RecordingProgress.h"
#include "waveform/WaveformChannels.h"
#include "waveform/WaveformRecord.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>
#include <vector>

using namespace lorvane;

namespace {

// A capture and the two contiguous rows after it, cut from one continuous signal of the
// global sample number. The adjacent rows are served from arrays, as the loader would
// read them, and every request is recorded.
struct ContiguousCaptures
{
    WaveformRecord record;
    WaveformChannels capture;
    std::vector<WaveformChannels> following;
    std::vector<std::pair<int, int>> requests; // direction, load channel
    int channel = WaveformChannels::Ia;

    ContiguousCaptures(int rate, int sampleCount, int rowsAfter,
                       const std::function<double(int)>& signal)
    {
        record.deviceTypeId = 2;
        record.sampleRate = static_cast<qint16>(rate);
        record.sampleCount = sampleCount;
        record.hasNext1 = rowsAfter >= 1;
        record.hasNext2 = rowsAfter >= 2;
        for (int row = 0; row <= rowsAfter; ++row) {
            WaveformChannels channels;
            channels.resize(sampleCount);
            for (int i = 0; i < sampleCount; ++i)
                channels.samples[static_cast<std::size_t>(channel)][i] =
                    static_cast<float>(signal(row * sampleCount + i));
            if (row == 0)
                capture = channels;
            else
                following.push_back(channels);
        }
    }

    InterharmonicAnalysis::AdjacentRows rows()
    {
        return [this](int direction, int loadChannel, WaveformChannels& out) {
            requests.emplace_back(direction, loadChannel);
            if (direction >= static_cast<int>(following.size()))
                return false;
            out = following[static_cast<std::size_t>(direction)];
            return true;
        };
    }
};

// Fundamental at `bin` of the 200 ms window (bin 12 = 60 Hz, bin 10 = 50 Hz) of 12 x rate
// samples, with tones given as (bin, percent).
std::function<double(int)> tones(int rate, int bin, std::vector<std::pair<double, double>> extra)
{
    const int window = 12 * rate;
    return [=](int g) {
        const double t = 2 * std::numbers::pi * g / window;
        double v = 100 * std::sin(bin * t);
        for (const auto& [b, percent] : extra)
            v += percent * std::sin(b * t + 0.4);
        return v;
    };
}

} // namespace

TEST(InterharmonicAnalysis, WindowLengthsAndFitRules)
{
    WaveformRecord record;
    record.deviceTypeId = 2;
    record.sampleRate = 64;
    record.sampleCount = 1024;
    record.windowStart = 255;
    auto prepared = InterharmonicAnalysis::prepare(record);
    EXPECT_TRUE(prepared.ok);
    EXPECT_EQ(prepared.windowLength, 769);
    EXPECT_EQ(record.windowLength, 769);
    record.windowStart = 256;
    prepared = InterharmonicAnalysis::prepare(record);
    EXPECT_FALSE(prepared.ok);
    // The capture holds 16 cycles, more than the 12 needed: only the contiguous row lacks.
    EXPECT_EQ(prepared.message, "\nThe selected waveform only has 16 cycles of data on a 64 "
                                "sampling rate.\nYou do no have enough waveform captures to "
                                "perform interharmonic analysis");
    record.hasNext1 = true;
    EXPECT_TRUE(InterharmonicAnalysis::prepare(record).ok);

    // 512 a cycle: 6145 samples, never in one row of 4096.
    record.sampleRate = 512;
    record.sampleCount = 4096;
    record.hasNext1 = false;
    record.windowStart = 0;
    prepared = InterharmonicAnalysis::prepare(record);
    EXPECT_EQ(prepared.windowLength, 6145);
    EXPECT_EQ(prepared.message,
              "Interharmonic analysis requires atleast 12 cycles of data to continue.\nThe "
              "selected waveform only has 8 cycles of data on a 512 sampling rate.\nYou do no "
              "have enough waveform captures to perform interharmonic analysis");
    record.hasNext1 = true;
    EXPECT_TRUE(InterharmonicAnalysis::prepare(record).ok);
    record.windowStart = 2048; // needs 4097 from the next row
    EXPECT_FALSE(InterharmonicAnalysis::prepare(record).ok);
    record.hasNext2 = true;
    EXPECT_TRUE(InterharmonicAnalysis::prepare(record).ok);

    // 48 passes the rate check and fails every fit rule; other rates are refused outright.
    record.sampleRate = 48;
    record.windowStart = 0;
    prepared = InterharmonicAnalysis::prepare(record);
    EXPECT_FALSE(prepared.ok);
    EXPECT_EQ(prepared.windowLength, 577);
    record.sampleRate = 100;
    prepared = InterharmonicAnalysis::prepare(record);
    EXPECT_EQ(prepared.message, "Invalid waveform sampling rate (100).");
    EXPECT_EQ(prepared.windowLength, 0);
    // Files of device type 5 at 1024 a cycle must hold the window themselves.
    record.deviceTypeId = 5;
    record.sampleRate = 1024;
    record.sampleCount = 12289;
    EXPECT_TRUE(InterharmonicAnalysis::prepare(record).ok);
    record.sampleCount = 12288;
    EXPECT_FALSE(InterharmonicAnalysis::prepare(record).ok);
    record.deviceTypeId = 0;
    record.sampleRate = 16;
    record.sampleCount = 960;
    EXPECT_EQ(InterharmonicAnalysis::prepare(record).windowLength, 193);

    // Placing the mark where the window does not fit keeps the old start.
    record.deviceTypeId = 2;
    record.sampleRate = 64;
    record.sampleCount = 1024;
    record.hasNext1 = record.hasNext2 = false;
    record.windowStart = 10;
    // 26.3 ms at 64 samples a 60 Hz cycle is sample 101.
    EXPECT_TRUE(InterharmonicAnalysis::placeMark(record, 26.3).ok);
    EXPECT_EQ(record.windowStart, 100);
    EXPECT_FALSE(InterharmonicAnalysis::placeMark(record, 600 * 0.2604167).ok);
    EXPECT_EQ(record.windowStart, 100);
}

TEST(InterharmonicAnalysis, ReportsItsShareAndACancelStopsItHalfWay)
{
    /// Raises the cancel at its `at`-th share.
    struct Cancelling : RecordingProgress
    {
        int at = -1;

    protected:
        void showFraction(std::optional<double> fraction) override
        {
            RecordingProgress::showFraction(fraction);
            if (int(fractions.size()) == at)
                requestCancel();
        }
    };
    struct Case
    {
        int cancelAt;
        bool ok;
        std::size_t rowsRead;
    };
    // Fault: the run told no share and saw a cancel only at its end, after the following row
    // had been read and the spectrum made.
    for (const Case& c : {Case{-1, true, 1}, Case{1, false, 0}, Case{2, false, 1}}) {
        ContiguousCaptures captures(512, 4096, 2, tones(512, 12, {{18, 5.0}}));
        Cancelling progress;
        progress.at = c.cancelAt;
        const auto result = InterharmonicAnalysis(60).run(
            captures.record, captures.capture, captures.channel, captures.rows(),
            HarmonicSpectrum::Method::Quadratic, &progress);
        EXPECT_EQ(result.ok, c.ok) << c.cancelAt;
        EXPECT_TRUE(result.message.isEmpty()) << c.cancelAt;
        EXPECT_EQ(captures.requests.size(), c.rowsRead) << c.cancelAt;
        EXPECT_TRUE(std::is_sorted(progress.fractions.cbegin(), progress.fractions.cend()));
        if (c.ok) {
            EXPECT_GT(progress.fractions.size(), 100) << "the transform's bins are told";
            EXPECT_EQ(progress.fractions.last(), 1);
        } else {
            EXPECT_EQ(int(progress.fractions.size()), c.cancelAt);
        }
    }
}

TEST(InterharmonicAnalysis, WindowCrossesARowBoundaryAndTheToneLandsInItsGroup)
{
    // 512 a cycle, 60 Hz fundamental and a 5 % tone at 1.5 x (90 Hz, bin 18).
    ContiguousCaptures captures(512, 4096, 2, tones(512, 12, {{18, 5.0}}));
    const InterharmonicAnalysis analysis(60);
    const auto result =
        analysis.run(captures.record, captures.capture, captures.channel, captures.rows());
    ASSERT_TRUE(result.ok) << result.message.toStdString();
    ASSERT_EQ(captures.requests.size(), 1U); // the window ends inside the next row
    EXPECT_EQ(captures.requests[0], std::make_pair(0, captures.channel));
    ASSERT_EQ(result.samples.size(), 6145);
    const auto expected = tones(512, 12, {{18, 5.0}});
    for (int i : {0, 4095, 4096, 4097, 6144})
        EXPECT_NEAR(result.samples[i], expected(i), 1e-3) << i;
    EXPECT_EQ(captures.capture.samples[3][0], static_cast<float>(expected(0)));

    ASSERT_EQ(result.ampPct.size(), 3072);
    EXPECT_NEAR(result.ampPct[12], 100.0, 1e-4);
    EXPECT_NEAR(result.ampPct[18], 5.0, 1e-4);
    EXPECT_NEAR(result.sqPct[18], 0.25, 1e-5);
    ASSERT_EQ(result.groupSum.size(), 255);
    EXPECT_NEAR(result.groupSum[0], 0.25, 1e-5);
    EXPECT_NEAR(result.groupSum[1], 0.0, 1e-6);

    // The quadratic transform gives the same spectrum within 1e-6 of the fundamental.
    ContiguousCaptures again(512, 4096, 2, tones(512, 12, {{18, 5.0}}));
    const auto reference = analysis.run(again.record, again.capture, again.channel, again.rows(),
                                        HarmonicSpectrum::Method::Quadratic);
    for (int m = 0; m < 3072; ++m)
        ASSERT_NEAR(result.ampPct[m], reference.ampPct[m], 1e-4) << m;

    // Graph data and texts.
    EXPECT_EQ(result.trace.title, "Waveform for Interharmonic Analysis (60Hz Window)");
    EXPECT_EQ(result.trace.xTitle, "Milliseconds");
    EXPECT_EQ(result.trace.x.size(), 6145);
    EXPECT_NEAR(result.time[1], 0.03, 1e-6);     // 0.0326 ms shown as 0.03
    EXPECT_NEAR(result.time[6144], 200.0, 1e-4); // 6144 x 0.03255 ms
    EXPECT_EQ(result.spectrum.title, "Harmonic & Interharmonic Spectrum (60Hz Window)");
    EXPECT_EQ(result.spectrum.xTitle, "Frequency(Hz)");
    EXPECT_EQ(result.spectrum.yTitle, "%");
    EXPECT_EQ(result.spectrum.labels.at(11), "");
    EXPECT_EQ(result.spectrum.labels.at(12), "60");
    EXPECT_EQ(result.spectrum.labels.at(13), "65");
    EXPECT_EQ(result.groups.title, "IEC-1000-2-1[1] Interharmonic Spectrum (60Hz Window)");
    EXPECT_EQ(result.groups.subsetTitle, "Inhterharmonic");
    EXPECT_EQ(result.groups.xTitle, "Frequency(Hz) Group");
    EXPECT_EQ(result.groups.y.size(), 254);
    EXPECT_EQ(result.groups.labels.at(0), "60 to 120");
    EXPECT_EQ(result.groups.labels.at(2), "180 to 240");
    EXPECT_EQ(InterharmonicAnalysis::traceHotSpot(12.3456), "Duration = 12.346 ms");
    EXPECT_EQ(InterharmonicAnalysis::barHotSpot(true, 0.25), "@ Frequency Group 0.25%");
    EXPECT_EQ(InterharmonicAnalysis::barHotSpot(false, 5), "@ Frequency 5.00%");
}

TEST(InterharmonicAnalysis, SystemFrequencyChoosesBinsAndGroupTop)
{
    // A 50 Hz wave on a 60 Hz-based capture: the length stays, bin 10 is the fundamental, and
    // a tone at 75 Hz (bin 15) falls in the first group.
    ContiguousCaptures fifty(64, 1024, 0, tones(64, 10, {{15, 5.0}}));
    InterharmonicAnalysis analysis(60);
    analysis.setSystemFrequency(50, InterharmonicAnalysis::FrequencySource::Menu);
    EXPECT_EQ(analysis.fundamentalBin(), 10);
    EXPECT_EQ(analysis.groupTop(), 8);
    auto result = analysis.run(fifty.record, fifty.capture, fifty.channel, fifty.rows());
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(fifty.record.windowLength, 769);
    EXPECT_NEAR(result.ampPct[10], 100.0, 1e-4);
    EXPECT_NEAR(result.ampPct[15], 5.0, 1e-4);
    EXPECT_NEAR(result.groupSum[0], 0.25, 1e-5);
    EXPECT_EQ(result.spectrum.labels.at(10), "50");
    EXPECT_EQ(result.spectrum.labels.at(11), "55");
    EXPECT_EQ(result.groups.labels.at(1), "100 to 150");
    EXPECT_EQ(result.trace.title, "Waveform for Interharmonic Analysis (50Hz Window)");
    EXPECT_TRUE(fifty.requests.empty());

    // 60 Hz: bin 22 (110 Hz) is offset 10 from the fundamental: inside the group from the
    // setting (top 10), outside it from the menu (top 9).
    ContiguousCaptures sixty(64, 1024, 0, tones(64, 12, {{22, 4.0}}));
    analysis.setSystemFrequency(60, InterharmonicAnalysis::FrequencySource::Setting);
    EXPECT_EQ(analysis.groupTop(), 10);
    result = analysis.run(sixty.record, sixty.capture, sixty.channel, sixty.rows());
    EXPECT_NEAR(result.groupSum[0], 0.16, 1e-5);
    analysis.setSystemFrequency(60, InterharmonicAnalysis::FrequencySource::Menu);
    EXPECT_EQ(analysis.groupTop(), 9);
    result = analysis.run(sixty.record, sixty.capture, sixty.channel, sixty.rows());
    EXPECT_NEAR(result.groupSum[0], 0.0, 1e-6);
    EXPECT_EQ(result.groupSum.size(), 31);
    EXPECT_EQ(result.groups.y.size(), 30);
    EXPECT_NEAR(result.time[1], 0.26, 1e-6);
}

TEST(InterharmonicAnalysis, RefusalsMissingRowsAndAnEmptyFundamental)
{
    ContiguousCaptures captures(64, 1024, 0, [](int) { return 0.0; });
    const InterharmonicAnalysis analysis;
    auto result = analysis.run(captures.record, captures.capture, 7, captures.rows());
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, "Invalid waveform channel. Should be volt or current.");
    captures.record.deviceTypeId = 0;
    result = analysis.run(captures.record, captures.capture, 0, captures.rows());
    EXPECT_EQ(result.message, "Device type not supported. This feature is for Halyx only.");
    captures.record.deviceTypeId = 2;

    // A zero fundamental gives empty spectra and no error.
    result = analysis.run(captures.record, captures.capture, captures.channel, captures.rows());
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.ampPct.size(), 384);
    for (int m = 0; m < result.ampPct.size(); ++m)
        ASSERT_EQ(result.ampPct[m], 0.0F);
    for (float g : result.groupSum)
        EXPECT_EQ(g, 0.0F);

    // The next row is announced but cannot be read: the rest of the window stays zero.
    ContiguousCaptures lost(64, 1024, 0, tones(64, 12, {}));
    lost.record.hasNext1 = true;
    lost.record.windowStart = 600;
    result = analysis.run(lost.record, lost.capture, lost.channel, lost.rows());
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(lost.requests.size(), 1U);
    EXPECT_NE(result.samples[423], 0.0F);
    for (int i = 424; i < 769; ++i)
        ASSERT_EQ(result.samples[i], 0.0F);
    // Without a callback the same happens.
    result = analysis.run(lost.record, lost.capture, lost.channel, {});
    EXPECT_TRUE(result.ok);
}
