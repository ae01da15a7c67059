// SPDX-License-Identifier: GPL-3.0-or-later
#include "SupplyAggregator.h"

#include <algorithm>
#include <cmath>

namespace lorvane::sim {

namespace {

/// No disturbance of the model lasts longer than this, so the search for those overlapping a
/// span may start this far before it.
constexpr qint64 longestDisturbance = 5;

} // namespace

qint64 SupplyAggregator::alignUp(qint64 second, qint64 span)
{
    const qint64 remainder = ((second % span) + span) % span;
    return remainder == 0 ? second : second + span - remainder;
}

double SupplyAggregator::frequency(qint64 start) const
{
    double sum = 0.0;
    for (qint64 s = start; s < start + frequencySpan; ++s)
        sum += m_model.frequency(s);
    return sum / static_cast<double>(frequencySpan);
}

SupplyAggregator::Interval SupplyAggregator::interval(qint64 start) const
{
    Interval result;
    const double nominal = m_model.config().nominalVoltage;
    const auto fartherFromNominal = [nominal](double a, double b) {
        return std::abs(b - nominal) > std::abs(a - nominal) ? b : a;
    };

    std::array<double, 3> squares{};
    double unbalance = 0.0;
    int samples = 0;
    for (qint64 s = start; s < start + intervalSpan; s += sampleStep, ++samples) {
        for (int phase = 0; phase < 3; ++phase) {
            const double v = m_model.voltage(phase, s);
            squares[phase] += v * v;
            result.extreme[phase] = samples == 0 ? v : fartherFromNominal(result.extreme[phase], v);
        }
        unbalance += m_model.unbalancePercent(s);
    }
    for (int phase = 0; phase < 3; ++phase)
        result.voltage[phase] = std::sqrt(squares[phase] / samples);
    result.unbalance = unbalance / samples;

    // Dips and swells are far shorter than the sample spacing; a meter sees them in its
    // one-cycle RMS values, so their residual voltage counts as a value of the interval.
    const auto& disturbances = m_model.disturbances();
    auto it =
        std::lower_bound(disturbances.cbegin(), disturbances.cend(), start - longestDisturbance,
                         [](const Disturbance& d, qint64 s) { return d.startSecond < s; });
    const double end = static_cast<double>(start + intervalSpan);
    for (; it != disturbances.cend() && it->startSecond < start + intervalSpan; ++it) {
        if (it->kind == Disturbance::Kind::Transient || it->channel < 0 || it->channel > 2)
            continue;
        const double from = static_cast<double>(it->startSecond) + it->startMs / 1000.0;
        const double to = from + it->durationMs / 1000.0;
        if (to <= static_cast<double>(start) || from >= end)
            continue;
        result.extreme[it->channel] =
            fartherFromNominal(result.extreme[it->channel], nominal * it->residualPercent / 100.0);
    }

    const qint64 middle = start + intervalSpan / 2;
    for (int phase = 0; phase < 3; ++phase) {
        for (int order = firstHarmonic; order <= lastHarmonic; ++order)
            result.harmonic[phase][order - firstHarmonic] =
                m_model.voltageHarmonicPercent(phase, order, middle);
        result.thd[phase] = m_model.voltageThdPercent(phase, middle);
    }
    return result;
}

std::array<double, 3> SupplyAggregator::longTermFlicker(qint64 start) const
{
    return {m_model.plt(0, start), m_model.plt(1, start), m_model.plt(2, start)};
}

} // namespace lorvane::sim
