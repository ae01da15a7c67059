// SPDX-License-Identifier: GPL-3.0-or-later
// The spectra of the waveform analysis against the quadratic table-driven transform on the
// same samples: the statistics of one clicked cycle at 512 samples a cycle, and the 6144-point
// interharmonic window of a 512-sample capture and its contiguous row.
#include "BenchClock.h"
#include "waveform/InterharmonicAnalysis.h"
#include "waveform/WaveformChannels.h"
#include "waveform/WaveformRecord.h"
#include "waveform/WaveformStatistics.h"

#include <cmath>
#include <cstdio>
#include <numbers>

using namespace lorvane;

namespace {

constexpr int rate = 512;
constexpr int sampleCount = 4096;

// Mains wave with 5th and 7th harmonics and a 1.5 x interharmonic, continuous over rows.
float sample(long long g)
{
    const double t = 2 * std::numbers::pi * static_cast<double>(g) / rate;
    return static_cast<float>(325 * std::sin(t) + 13 * std::sin(5 * t + 0.2) +
                              9.75 * std::sin(7 * t) + 16 * std::sin(1.5 * t));
}

WaveformChannels row(int index)
{
    WaveformChannels channels;
    channels.resize(sampleCount);
    for (int c = 0; c < WaveformChannels::analogCount; ++c)
        for (int i = 0; i < sampleCount; ++i)
            channels.samples[static_cast<std::size_t>(c)][i] =
                sample(static_cast<long long>(index) * sampleCount + i);
    channels.labels[WaveformChannels::Ia] = QStringLiteral("Ia");
    return channels;
}

} // namespace

int main()
{
    WaveformRecord record;
    record.deviceTypeId = 2;
    record.sampleRate = rate;
    record.pointsInCycle = rate;
    record.pointsInCycle16 = rate;
    record.sampleCount = sampleCount;
    record.hasNext1 = true;
    const WaveformChannels capture = row(0);
    const WaveformChannels next = row(1);
    const double step = 1.0 / rate / 60 * 1000;

    // A click is one cycle's statistics; 20 clicks over the capture per timed run.
    auto clicks = [&](HarmonicSpectrum::Method method) {
        const WaveformStatistics statistics(record, capture, method);
        QString last;
        for (int k = 0; k < 20; ++k)
            last = statistics.computeChannelStatistics(WaveformChannels::Ia, (100 + 150 * k) * step)
                       .thdText;
        return last;
    };
    std::printf("THD of the cycle: fast %s, quadratic %s\n",
                qPrintable(clicks(HarmonicSpectrum::Method::Fast)),
                qPrintable(clicks(HarmonicSpectrum::Method::Quadratic)));
    const double statisticsRatio = bench::compare(
        "statistics, 20 cycles of 512 points", [&] { clicks(HarmonicSpectrum::Method::Fast); },
        [&] { clicks(HarmonicSpectrum::Method::Quadratic); }, 15);

    const InterharmonicAnalysis analysis(60);
    auto window = [&](HarmonicSpectrum::Method method) {
        WaveformRecord header = record;
        return analysis.run(
            header, capture, WaveformChannels::Ia,
            [&](int, int, WaveformChannels& rows) {
                rows = next;
                return true;
            },
            method);
    };
    const auto fast = window(HarmonicSpectrum::Method::Fast);
    std::printf("interharmonic window: %lld points, group 60 to 120 Hz %.4f %%\n",
                static_cast<long long>(fast.samples.size() - 1),
                static_cast<double>(fast.groupSum.value(0)));
    const double windowRatio = bench::compare(
        "interharmonic window, 6144 points", [&] { window(HarmonicSpectrum::Method::Fast); },
        [&] { window(HarmonicSpectrum::Method::Quadratic); }, 5);
    return statisticsRatio > 0 && windowRatio > 0 ? 0 : 1;
}
