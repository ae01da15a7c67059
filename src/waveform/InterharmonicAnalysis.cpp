// SPDX-License-Identifier: GPL-3.0-or-later
#include "InterharmonicAnalysis.h"

#include "BankersRounding.h"
#include "WaveformChannels.h"
#include "WaveformRecord.h"
#include "WaveformTimeBase.h"
#include "platform/LoadProgress.h"
#include "platform/UserText.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

bool isAnalysisRate(int rate)
{
    static constexpr int rates[] = {16, 32, 48, 64, 128, 256, 512, 1024};
    return std::find(std::begin(rates), std::end(rates), rate) != std::end(rates);
}

bool windowFits(const WaveformRecord& record, int windowLength)
{
    const long long start = record.windowStart;
    const long long count = record.sampleCount;
    if (start < 0 || start > count)
        return false;
    const long long end = start + windowLength;
    if (record.deviceTypeId == 4 || record.deviceTypeId == 5)
        return end <= count;
    switch (record.sampleRate) {
    case 16:
    case 32:
    case 64:
        return end <= count || (record.hasNext1 && end - count <= count);
    case 128:
    case 256:
    case 512:
        return record.hasNext1 && (windowLength - (count - start) <= count || record.hasNext2);
    default:
        // 48 and 1024 samples a cycle have no rule for contiguous rows.
        return false;
    }
}

QString shortageMessage(const WaveformRecord& record, int windowLength)
{
    const int rate = record.sampleRate;
    const int needed = BankersRounding::toInt(static_cast<double>(windowLength) / rate);
    const int held = BankersRounding::toInt(static_cast<double>(record.sampleCount) / rate);
    QString message;
    // A capture that holds the cycles on its own lacks only the contiguous rows: the first
    // sentence would be wrong then and is left out.
    if (held < needed)
        message = userText("502010", "Interharmonic analysis requires atleast ") +
                  QString::number(needed) + userText("502011", " cycles of data to continue.");
    message +=
        QLatin1Char('\n') + userText("502012", "The selected waveform only has ") +
        QString::number(held) + userText("502013", " cycles of data on a ") +
        QString::number(rate) + userText("502014", " sampling rate.") + QLatin1Char('\n') +
        userText("502015", "You do no have enough waveform captures to perform interharmonic "
                           "analysis");
    return message;
}

// Copies what fits of `source` from `sourceStart` into `target` from `targetStart`, at most
// `count` samples; returns how many were copied.
int copySampleRange(const QVector<float>& source, int sourceStart, QVector<float>& target,
                    int targetStart, int count)
{
    const int available = std::min<int>(static_cast<int>(source.size()) - sourceStart,
                                        static_cast<int>(target.size()) - targetStart);
    const int copied = std::max(0, std::min(count, available));
    std::copy_n(source.cbegin() + sourceStart, copied, target.begin() + targetStart);
    return copied;
}

} // namespace

InterharmonicAnalysis::InterharmonicAnalysis(int systemFrequency)
{
    setSystemFrequency(systemFrequency, FrequencySource::Setting);
}

void InterharmonicAnalysis::setSystemFrequency(int hz, FrequencySource source)
{
    m_systemFrequency = hz == 50 ? 50 : 60;
    if (m_systemFrequency == 50)
        m_groupTop = 8;
    else
        m_groupTop = source == FrequencySource::Menu ? 9 : 10;
}

InterharmonicAnalysis::Preparation InterharmonicAnalysis::prepare(WaveformRecord& record)
{
    Preparation result;
    if (record.deviceTypeId != 0 && !isAnalysisRate(record.sampleRate)) {
        result.message = userText("502016", "Invalid waveform sampling rate") +
                         QStringLiteral(" (") + QString::number(record.sampleRate) +
                         QStringLiteral(").");
        return result;
    }
    // 200 ms on a 60 Hz base whatever the system frequency: a 50 Hz system differs only in
    // which bins are its harmonics.
    const int length = record.deviceTypeId == 0 ? 192 : 12 * record.sampleRate;
    result.windowLength = length + 1;
    record.windowLength = result.windowLength;
    result.ok = windowFits(record, result.windowLength);
    if (!result.ok)
        result.message = shortageMessage(record, result.windowLength);
    return result;
}

InterharmonicAnalysis::Preparation InterharmonicAnalysis::placeMark(WaveformRecord& record,
                                                                    double ms)
{
    const qint32 oldStart = record.windowStart;
    record.windowStart = WaveformTimeBase::sampleAt(record, ms) - 1;
    Preparation result = prepare(record);
    if (!result.ok)
        record.windowStart = oldStart;
    return result;
}

InterharmonicAnalysis::Result
InterharmonicAnalysis::run(WaveformRecord& record, const WaveformChannels& capture, int channel,
                           const AdjacentRows& adjacentRows, HarmonicSpectrum::Method method,
                           LoadProgress* progress) const
{
    // Shares of the run: the own samples, the following rows (read from the database, the
    // slow part), the transform, the groups.
    constexpr double ownDone = 0.1;
    constexpr double rowsDone = 0.6;
    constexpr double transformDone = 0.95;
    // True when the run is to stop here; the share done so far is reported first.
    const auto stopAt = [progress](double share) {
        if (!progress)
            return false;
        progress->setFraction(share);
        return progress->cancelRequested();
    };
    Result result;
    result.frequency = m_systemFrequency;
    result.fundamentalBin = fundamentalBin();
    result.groupTop = m_groupTop;
    if (channel < 0 || channel >= WaveformChannels::analogCount) {
        result.message = userText("502017", "Invalid waveform channel. Should be volt or current") +
                         QLatin1Char('.');
        return result;
    }
    if (record.deviceTypeId == 0) {
        result.message =
            userText("502018", "Device type not supported. This feature is for Halyx only") +
            QLatin1Char('.');
        return result;
    }
    const Preparation preparation = prepare(record);
    if (!preparation.ok) {
        result.message = preparation.message;
        return result;
    }
    const int windowLength = preparation.windowLength;
    result.windowStart = record.windowStart;

    result.samples.fill(0.0F, windowLength);
    const QVector<float>& own = capture.samples[static_cast<std::size_t>(channel)];
    const int captureCount = std::min<int>(record.sampleCount, static_cast<int>(own.size()));
    int filled = copySampleRange(own, record.windowStart, result.samples, 0,
                                 std::min(windowLength, captureCount - record.windowStart));
    if (stopAt(ownDone))
        return {};
    const bool hasNext[] = {record.hasNext1, record.hasNext2};
    for (int direction = 0; direction < 2; ++direction) {
        if (filled >= windowLength || !hasNext[direction] || !adjacentRows)
            continue;
        // The following rows are read into a copy of their own, so the open capture stays
        // as it was and needs no reload afterwards.
        WaveformChannels rows;
        if (!adjacentRows(direction, channel, rows))
            continue;
        const QVector<float>& next = rows.samples[static_cast<std::size_t>(channel)];
        filled += copySampleRange(next, 0, result.samples, filled,
                                  std::min(windowLength - filled, record.sampleCount));
        if (stopAt(ownDone + (rowsDone - ownDone) * (direction + 1) / 2))
            return {};
    }

    const double step = 1.0 / record.sampleRate / 60 * 1000;
    result.time.resize(windowLength);
    for (int i = 0; i < windowLength; ++i)
        result.time[i] = QString::number(i * step, 'f', 2).toFloat();

    // The extra sample of the window is drawn but not transformed.
    const int count = windowLength - 1;
    std::vector<double> input(result.samples.cbegin(), result.samples.cbegin() + count);
    std::optional<ProgressShare> transforming;
    if (progress)
        transforming.emplace(*progress, rowsDone, transformDone);
    const std::vector<double> magnitude =
        HarmonicSpectrum::magnitudes(input, method, transforming ? &*transforming : nullptr);
    if (stopAt(transformDone))
        return {};

    const int bins = BankersRounding::toInt(count / 2.0);
    const int f = fundamentalBin();
    result.ampPct.fill(0.0F, bins);
    result.sqPct.fill(0.0F, bins);
    const int groupCount = std::max(0, static_cast<int>(record.sampleRate / 2.0 - 2) + 1);
    result.groupSum.fill(0.0F, groupCount);
    const double fundamental = static_cast<std::size_t>(f) < magnitude.size()
                                   ? magnitude[static_cast<std::size_t>(f)]
                                   : 0.0;
    if (fundamental > 0) {
        for (int m = 0; m < bins; ++m) {
            result.ampPct[m] =
                static_cast<float>(magnitude[static_cast<std::size_t>(m)] / fundamental * 100);
            result.sqPct[m] = result.ampPct[m] * result.ampPct[m] / 100.0F;
        }
        // From two bins above each harmonic up to the group top: the bins next to the
        // harmonics stay out, which centres the group between them.
        for (int k = 0; k < groupCount; ++k)
            for (int j = 2; j <= m_groupTop; ++j) {
                const int bin = (k + 1) * f + j;
                if (bin < bins)
                    result.groupSum[k] += result.sqPct[bin];
            }
    }
    fillGraphs(result, record.sampleRate);
    if (progress)
        progress->setFraction(1);
    result.ok = true;
    return result;
}

void InterharmonicAnalysis::fillGraphs(Result& result, int sampleRate) const
{
    const int hz = m_systemFrequency;
    const QString window = QStringLiteral(" (") + QString::number(hz) +
                           userText("502019", "Hz Window") + QLatin1Char(')');
    const QString percent = userText("502020", "%");

    GraphSeries& trace = result.trace;
    trace.title = userText("502021", "Waveform for Interharmonic Analysis") + window;
    trace.xTitle = userText("502022", "Milliseconds");
    for (int i = 0; i < result.samples.size(); ++i) {
        trace.x.append(result.time[i]);
        trace.y.append(result.samples[i]);
    }

    GraphSeries& spectrum = result.spectrum;
    spectrum.title = userText("502023", "Harmonic & Interharmonic Spectrum") + window;
    spectrum.yTitle = percent;
    spectrum.xTitle = userText("502024", "Frequency(Hz)");
    const int f = fundamentalBin();
    int label = hz;
    for (int m = 0; m < result.ampPct.size(); ++m) {
        spectrum.x.append(m);
        spectrum.y.append(result.ampPct[m]);
        if (m < f) {
            spectrum.labels.append(QString());
        } else {
            spectrum.labels.append(QString::number(label));
            label += 5;
        }
    }

    GraphSeries& groups = result.groups;
    groups.title = userText("502025", "IEC-1000-2-1[1] Interharmonic Spectrum") + window;
    groups.subsetTitle = userText("502026", "Inhterharmonic");
    groups.yTitle = percent;
    groups.xTitle = userText("502027", "Frequency(Hz) Group");
    const int shown = std::min<int>(sampleRate / 2 - 2, static_cast<int>(result.groupSum.size()));
    for (int k = 0; k < shown; ++k) {
        groups.x.append(k);
        groups.y.append(result.groupSum[k]);
        groups.labels.append(QString::number((k + 1) * hz) + userText("502028", " to ") +
                             QString::number((k + 2) * hz));
    }
}

QString InterharmonicAnalysis::traceHotSpot(double ms)
{
    return userText("502029", "Duration") + QStringLiteral(" = ") + QString::number(ms, 'f', 3) +
           userText("502030", " ms");
}

QString InterharmonicAnalysis::barHotSpot(bool group, double percent)
{
    return QStringLiteral("@ ") +
           (group ? userText("502031", "Frequency Group") : userText("502032", "Frequency")) +
           QLatin1Char(' ') + QString::number(percent, 'f', 2) + QLatin1Char('%');
}

} // namespace lorvane
