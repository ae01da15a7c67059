// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformStatistics.h"

#include "BankersRounding.h"
#include "EngineeringNumberText.h"
#include "WaveformChannels.h"
#include "WaveformRecord.h"
#include "WaveformTimeBase.h"
#include "platform/UserText.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

QString notAvailable()
{
    return userText("502001", "N/A");
}

// RMS and peak are shown and divided as the single-precision texts they are displayed from.
double throughSingleText(float value)
{
    return QString::number(value, 'g', 7).toDouble();
}

} // namespace

WaveformStatistics::WaveformStatistics(const WaveformRecord& record,
                                       const WaveformChannels& channels,
                                       HarmonicSpectrum::Method method)
    : m_record(record), m_channels(channels), m_method(method)
{
}

WaveformStatistics::Window WaveformStatistics::window(double cursorMs) const
{
    const int n = m_record.pointsInCycle16;
    const int sampleCount = m_channels.sampleCount();
    Window result;
    result.cursor = WaveformTimeBase::sampleAt(m_record, cursorMs);
    if (static_cast<long long>(result.cursor) + n > sampleCount) {
        result.cursor = sampleCount - n + 1;
        result.moved = true;
    }
    result.start = result.cursor >= 1 ? result.cursor - 1 : 0;
    result.end = result.start + n - 1;
    return result;
}

WaveformStatistics::ChannelStatistics
WaveformStatistics::computeChannelStatistics(int channel, double cursorMs) const
{
    ChannelStatistics result;
    result.rmsText = result.peakText = result.crestText = result.thdText = result.kFactorText =
        notAvailable();
    const int n = m_record.pointsInCycle16;
    if (channel < 0 || channel >= WaveformChannels::channelCount || n <= 0)
        return result;
    const QVector<float>& x = m_channels.samples[static_cast<std::size_t>(channel)];
    if (x.size() < n || m_channels.sampleCount() < n)
        return result;
    result.window = window(cursorMs);
    const Window& w = result.window;

    // The pass reads x[i - 1] for i from S to E - 1 and skips i = 0: N - 1 samples (N - 2 from
    // the first sample) over a divisor of N. The shortfall is the figure users know.
    double sum = 0;
    float peak = 0;
    for (int i = std::max(w.start, 1); i <= w.end - 1; ++i) {
        const double v = x[i - 1];
        sum += v * v;
        peak = std::max(peak, std::fabs(x[i - 1]));
    }
    result.rms = static_cast<float>(std::sqrt(sum / n));
    result.peak = peak;
    result.rmsValid = result.peakValid = true;
    result.rmsText = EngineeringNumberText::withLeadingZero(result.rms);
    result.peakText = EngineeringNumberText::withLeadingZero(result.peak);
    if (result.rms != 0.0F) {
        result.crest = throughSingleText(result.peak) / throughSingleText(result.rms);
        result.crestValid = true;
        result.crestText = EngineeringNumberText::withLeadingZero(result.crest);
    }

    if (channel < WaveformChannels::analogCount) {
        result.harmonics = computeHarmonics(channel, w.start);
        result.thdText = result.harmonics.thdText;
        result.kFactorText = result.harmonics.kFactorText;
    }
    return result;
}

WaveformStatistics::Harmonics WaveformStatistics::failedHarmonics(int count) const
{
    Harmonics result;
    result.thdText = result.kFactorText = notAvailable();
    result.percent.fill(0.0F, count);
    result.graph.yTitle = userText("502002", "%");
    result.graph.xTitle = userText("502003", "Harmonics");
    for (int m = 0; m < count; ++m) {
        result.graph.x.append(m);
        result.graph.y.append(0.0);
        result.graph.labels.append(QString::number(m));
    }
    return result;
}

WaveformStatistics::Harmonics WaveformStatistics::computeHarmonics(int channel, int start) const
{
    const int n = m_record.pointsInCycle16;
    const int h = n > 0 ? BankersRounding::toInt(n / 2.0) : 0;
    Harmonics result = failedHarmonics(h);
    const QString device = m_record.hardwareName;
    if (channel >= 0 && channel < WaveformChannels::channelCount)
        result.graph.subsetTitle =
            m_channels.labels[static_cast<std::size_t>(channel)] + QStringLiteral(" - ") + device;
    if (channel < 0 || channel >= WaveformChannels::analogCount || n <= 0 || start < 0)
        return result;
    const QVector<float>& x = m_channels.samples[static_cast<std::size_t>(channel)];
    if (static_cast<long long>(start) + n > x.size())
        return result;

    std::vector<double> input(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        input[static_cast<std::size_t>(i)] = x[start + i];
    std::vector<double> output = HarmonicSpectrum::magnitudes(input, m_method);
    if (output.size() < 2)
        return result;
    output[0] = 0;
    const double fundamental = output[1];
    if (!(fundamental > 0))
        return result;

    // Q(h) for h = 1 .. H, the square of the suppressed percent of bin h - 1.
    std::vector<double> squared(static_cast<std::size_t>(h) + 1, 0.0);
    for (int bin = 1; bin <= h; ++bin) {
        const int m = bin - 1;
        float percent = static_cast<float>(output[static_cast<std::size_t>(m)] / fundamental * 100);
        if (percent < 0.2F)
            percent = 0.0F;
        else
            squared[static_cast<std::size_t>(bin)] = static_cast<double>(percent) * percent;
        result.percent[m] = percent;
        result.graph.y[m] = percent;
    }
    double distortion = 0;
    for (int bin = 3; bin <= h; ++bin)
        distortion += squared[static_cast<std::size_t>(bin)];
    const double base = h >= 2 ? result.percent[1] : 0.0;
    if (!(base > 0))
        return result;
    result.valid = true;
    result.thd = std::sqrt(distortion) / base * 100;
    result.thdText = EngineeringNumberText::withoutLeadingZero(result.thd);
    if (channel >= WaveformChannels::Ia) {
        double weighted = 0;
        for (int bin = 2; bin <= h; ++bin)
            weighted +=
                static_cast<double>(bin - 1) * (bin - 1) * squared[static_cast<std::size_t>(bin)];
        result.kFactor = weighted / (result.thd * result.thd + 100.0 * 100.0);
        result.kFactorValid = true;
        result.kFactorText = EngineeringNumberText::withoutLeadingZero(result.kFactor);
    }
    return result;
}

QString WaveformStatistics::annotationText(const ChannelStatistics& statistics)
{
    const QString lines[] = {
        userText("502004", "RMS:") + QStringLiteral("      ") + statistics.rmsText,
        userText("502005", "Peak:") + QStringLiteral("     ") + statistics.peakText,
        userText("502006", "Crest:") + QStringLiteral("    ") + statistics.crestText,
        userText("502007", "%THD:") + QStringLiteral("   ") + statistics.thdText,
        userText("502008", "K-Fac:") + QStringLiteral("    ") + statistics.kFactorText,
    };
    QStringList joined(std::begin(lines), std::end(lines));
    return joined.join(QLatin1Char('\n'));
}

QString WaveformStatistics::hotSpotText(int bin, double percent)
{
    return userText("502009", "Harmonic") + QLatin1Char(' ') + QString::number(bin) +
           QStringLiteral(": ") + QString::number(percent, 'f', 2) + QLatin1Char('%');
}

} // namespace lorvane
