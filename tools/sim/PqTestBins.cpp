// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestBins.h"

#include "SupplyAggregator.h"

#include <algorithm>
#include <iterator>

namespace lorvane::sim {

namespace {

// Band edges. A value equal to an edge falls into the band above it, as the "< edge" labels
// of the bins say; durations are the exception: a band holds its upper edge.
constexpr double frequencyEdges[] = {0.85, 0.94, 0.98, 0.99, 1.0, 1.01, 1.02, 1.04, 1.15};
constexpr double slowVoltageEdges[] = {0.85, 0.9, 1.0, 1.1};
constexpr double fastVoltageEdges[] = {0.9, 0.95, 1.0, 1.05, 1.1};
constexpr double flickerLimit = 1.0;
constexpr double unbalanceEdges[] = {2.0, 3.0};
constexpr double thdLimit = 8.0;
constexpr double sagResidualEdges[] = {1.0, 5.0, 40.0, 70.0, 80.0};
constexpr double swellHeightEdges[] = {115.0, 120.0, 125.0, 130.0};
constexpr double durationEdgesMs[] = {200.0, 500.0, 1000.0, 5000.0, 60000.0};

/// Limits of the harmonic voltages, orders 2..25, percent of the fundamental.
constexpr double harmonicLimits[SupplyAggregator::harmonicCount] = {
    2.0, 5.0, 1.0, 6.0, 0.5, 5.0, 0.5, 1.5, 0.5, 3.5, 0.5, 3.0,
    0.5, 0.5, 0.5, 2.0, 0.5, 1.5, 0.5, 0.5, 0.5, 1.5, 0.5, 1.5};

/// Share of the values that must lie inside the band, and the share allowed above a limit.
constexpr double insideShare = 0.95;
constexpr double exceedShare = 0.05;

template <std::size_t N> int band(double value, const double (&edges)[N])
{
    return static_cast<int>(std::upper_bound(std::begin(edges), std::end(edges), value) -
                            std::begin(edges));
}

int durationBand(double ms)
{
    return static_cast<int>(
        std::lower_bound(std::begin(durationEdgesMs), std::end(durationEdgesMs), ms) -
        std::begin(durationEdgesMs));
}

/// Whether the meter measured the supply through all of [start, start + span).
bool measured(const SimSchedule& schedule, qint64 start, qint64 span)
{
    const auto overlaps = [start, span](qint64 from, qint64 to) {
        return start < to && start + span > from;
    };
    return !(schedule.hasOutage() && overlaps(schedule.outageStart(), schedule.outageEnd())) &&
           !overlaps(schedule.testStart(), schedule.testEnd());
}

/// Calls `visit` with the start of every clock-aligned span of `span` seconds that lies whole
/// inside [start, end) and that the meter measured.
template <typename Visit>
void forEachMeasured(const SimSchedule& schedule, qint64 start, qint64 end, qint64 span,
                     const Visit& visit)
{
    for (qint64 t = SupplyAggregator::alignUp(start, span); t + span <= end; t += span) {
        if (measured(schedule, t, span))
            visit(t);
    }
}

} // namespace

void PqTestBins::add(int number, double count)
{
    m_bins[static_cast<std::size_t>(number - 1)] += count;
}

double PqTestBins::bin(int number) const
{
    return number >= 1 && number <= binCount ? m_bins[static_cast<std::size_t>(number - 1)] : 0.0;
}

double PqTestBins::sum(int first, int count) const
{
    double total = 0.0;
    for (int i = 0; i < count; ++i)
        total += bin(first + i);
    return total;
}

PqTestBins PqTestBins::measure(const PowerSystemModel& model, const SimSchedule& schedule,
                               qint64 start, qint64 end)
{
    PqTestBins bins;
    const SupplyAggregator aggregator(model);
    const double nominalFrequency = model.config().frequency;
    const double nominalVoltage = model.config().nominalVoltage;
    bins.add(periodSecondsBin, static_cast<double>(end - start));

    forEachMeasured(schedule, start, end, SupplyAggregator::frequencySpan, [&](qint64 t) {
        bins.add(frequencyCountBin);
        bins.add(frequencyBins + band(aggregator.frequency(t) / nominalFrequency, frequencyEdges));
    });

    forEachMeasured(schedule, start, end, SupplyAggregator::intervalSpan, [&](qint64 t) {
        const SupplyAggregator::Interval values = aggregator.interval(t);
        bins.add(intervalCountBin);
        for (int phase = 0; phase < 3; ++phase) {
            bins.add(slowVoltageBins + 5 * phase +
                     band(values.voltage[phase] / nominalVoltage, slowVoltageEdges));
            bins.add(fastVoltageBins + 6 * phase +
                     band(values.extreme[phase] / nominalVoltage, fastVoltageEdges));
            for (int h = 0; h < SupplyAggregator::harmonicCount; ++h) {
                if (values.harmonic[phase][h] > harmonicLimits[h])
                    bins.add(harmonicBins + SupplyAggregator::harmonicCount * phase + h);
            }
            if (values.thd[phase] > thdLimit)
                bins.add(thdBins + phase);
        }
        bins.add(unbalanceBins + band(values.unbalance, unbalanceEdges));
    });

    forEachMeasured(schedule, start, end, SupplyAggregator::flickerSpan, [&](qint64 t) {
        const std::array<double, 3> plt = aggregator.longTermFlicker(t);
        bins.add(flickerCountBin);
        for (int phase = 0; phase < 3; ++phase)
            bins.add(flickerBins + 2 * phase + (plt[phase] < flickerLimit ? 0 : 1));
    });

    // Events as the PQ log holds them: one per disturbance of a voltage channel, whatever the
    // meter was doing at the time. A sag whose residual voltage is below 1 % is an
    // interruption.
    for (const Disturbance& d : model.disturbances()) {
        if (d.startSecond < start || d.startSecond >= end || d.channel < 0 || d.channel > 2)
            continue;
        switch (d.kind) {
        case Disturbance::Kind::Sag: {
            const bool interruption = d.residualPercent < 1.0;
            if (!interruption)
                bins.add(dipCountBin);
            else
                bins.add(d.durationMs <= shortInterruptionMs ? shortInterruptionBin
                                                             : longInterruptionBin);
            bins.add(sagDepthBins + band(d.residualPercent, sagResidualEdges));
            bins.add(sagDurationBins + durationBand(d.durationMs));
            bins.add((interruption ? interruptionPhaseBins : dipPhaseBins) + d.channel);
            break;
        }
        case Disturbance::Kind::Swell:
            bins.add(swellCountBin);
            bins.add(swellHeightBins + band(d.residualPercent, swellHeightEdges));
            bins.add(swellDurationBins + durationBand(d.durationMs));
            bins.add(swellPhaseBins + d.channel);
            break;
        case Disturbance::Kind::Transient:
            bins.add(transientPhaseBins + d.channel);
            break;
        }
    }
    return bins;
}

int PqTestBins::status(Criterion criterion, const PqTestSettings& settings) const
{
    const double n1 = bin(frequencyCountBin);
    const double n2 = bin(intervalCountBin);
    const double n3 = bin(flickerCountBin);
    const auto perPhase = [](const auto& test) { return test(0) && test(1) && test(2); };
    bool passed = false;
    switch (criterion) {
    case Criterion::Frequency:
        if (parameter(Criterion::Frequency, settings) != 0.0)
            passed = bin(frequencyBins) == 0 && bin(frequencyBins + 9) == 0 &&
                     sum(frequencyBins + 4, 2) >= insideShare * n1 && n1 != 0;
        else
            passed = bin(frequencyBins) == 0 && bin(frequencyBins + 1) == 0 &&
                     bin(frequencyBins + 8) == 0 && bin(frequencyBins + 9) == 0 &&
                     sum(frequencyBins + 3, 4) >= insideShare * n1 && n1 != 0;
        break;
    case Criterion::LongSlowVoltage: {
        // One phase inside the band is enough for the meter's verdict.
        const auto inside = [this, n2](int phase) {
            return sum(slowVoltageBins + 5 * phase + 2, 2) >= insideShare * n2;
        };
        passed = n2 != 0 && (inside(0) || inside(1) || inside(2));
        break;
    }
    case Criterion::FastVoltage: {
        const auto first = [this](int phase) {
            const int b = fastVoltageBins + 6 * phase;
            return bin(b) == 0 && bin(b + 5) == 0 && sum(b + 2, 2) >= bin(b + 1) + bin(b + 4);
        };
        const double allowance = parameter(Criterion::FastVoltage, settings);
        const auto second = [this, allowance](int phase) {
            const int b = fastVoltageBins + 6 * phase;
            return bin(b + 1) + bin(b + 4) <= 7.0 * allowance;
        };
        passed = perPhase(first) || (allowance != 0.0 && perPhase(second));
        break;
    }
    case Criterion::Flicker:
        passed = perPhase(
            [this, n3](int phase) { return bin(flickerBins + 2 * phase) >= insideShare * n3; });
        break;
    case Criterion::Unbalance:
        passed = n2 != 0 && bin(unbalanceBins) >= insideShare * n2;
        break;
    case Criterion::Harmonics:
        passed = n2 > 0;
        for (int i = 0; i < 3 * SupplyAggregator::harmonicCount; ++i)
            passed = passed && bin(harmonicBins + i) < exceedShare * n2;
        break;
    case Criterion::Thd:
        passed =
            perPhase([this, n2](int phase) { return bin(thdBins + phase) <= exceedShare * n2; });
        break;
    }
    return passed ? 1 : 0;
}

double PqTestBins::parameter(Criterion criterion, const PqTestSettings& settings)
{
    switch (criterion) {
    case Criterion::Frequency:
        return settings.frequencyParameter;
    case Criterion::LongSlowVoltage:
        return 10.0; // percent band around the nominal voltage
    case Criterion::FastVoltage:
        return settings.fastVoltageAllowance;
    case Criterion::Flicker:
        return flickerLimit;
    case Criterion::Unbalance:
        return unbalanceEdges[0];
    case Criterion::Harmonics:
        return exceedShare * 100.0;
    case Criterion::Thd:
        return thdLimit;
    }
    return 0.0;
}

} // namespace lorvane::sim
