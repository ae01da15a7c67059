// SPDX-License-Identifier: GPL-3.0-or-later
#include "PowerSystemModel.h"

#include "SimRandom.h"

#include <algorithm>
#include <cmath>

namespace lorvane::sim {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr qint64 secondsPerDay = 86400;

/// Quantities that draw their own jitter; the numbers only keep the streams apart.
enum Quantity
{
    VoltageJitter = 1,
    CurrentJitter = 10,
    FrequencyJitter = 20,
    PowerFactorJitter = 30,
    HarmonicJitter = 40,
    FlickerJitter = 100,
    LoadJitter = 110,
};

} // namespace

PowerSystemModel::PowerSystemModel(const Config& config) : m_config(config)
{
    SimRandom random(config.seed * 7919 + 17);
    const double days = static_cast<double>(config.endSecond - config.startSecond) / secondsPerDay;
    const int count = std::max(1, static_cast<int>(std::lround(days * config.disturbancesPerDay)));
    for (int i = 0; i < count; ++i) {
        Disturbance d;
        const double roll = random.uniform();
        d.kind = roll < 0.6    ? Disturbance::Kind::Sag
                 : roll < 0.85 ? Disturbance::Kind::Swell
                               : Disturbance::Kind::Transient;
        d.channel = random.integer(0, 2);
        // Keep a day's first and last minute free so that events never straddle midnight.
        const qint64 span = config.endSecond - config.startSecond;
        d.startSecond = config.startSecond + 60 +
                        static_cast<qint64>(random.uniform() * static_cast<double>(span - 180));
        d.startMs = std::floor(random.uniform(0.0, 1000.0) * 10.0) / 10.0;
        switch (d.kind) {
        case Disturbance::Kind::Sag:
            if (random.chance(0.15)) {
                d.residualPercent = random.uniform(0.0, 0.9); // interruption
                d.durationMs = random.uniform(500.0, 4000.0);
            } else {
                d.residualPercent = random.uniform(40.0, 89.0);
                d.durationMs = random.uniform(20.0, 1500.0);
            }
            break;
        case Disturbance::Kind::Swell:
            d.residualPercent = random.uniform(111.0, 135.0);
            d.durationMs = random.uniform(20.0, 800.0);
            break;
        case Disturbance::Kind::Transient:
            d.residualPercent = 100.0;
            d.durationMs = random.uniform(0.1, 2.0);
            d.transientPeakVolts = config.nominalVoltage * random.uniform(0.8, 3.0);
            break;
        }
        d.durationMs = std::round(d.durationMs * 10.0) / 10.0;
        m_disturbances.append(d);
    }
    std::sort(m_disturbances.begin(), m_disturbances.end(), [](const auto& a, const auto& b) {
        return a.startSecond != b.startSecond ? a.startSecond < b.startSecond
                                              : a.startMs < b.startMs;
    });
}

double PowerSystemModel::jitter(int quantity, qint64 bucket) const
{
    return SimRandom::noise(m_config.seed, static_cast<quint64>(quantity),
                            static_cast<quint64>(bucket));
}

double PowerSystemModel::loadFactor(qint64 second) const
{
    // Two daily peaks (morning and evening) over a night trough, weekends lighter.
    const double hour =
        static_cast<double>(((second % secondsPerDay) + secondsPerDay) % secondsPerDay) / 3600.0;
    const double morning = std::exp(-std::pow((hour - 10.0) / 3.0, 2.0));
    const double evening = std::exp(-std::pow((hour - 18.5) / 2.5, 2.0));
    const qint64 day = second / secondsPerDay;
    const bool weekend = ((day + 4) % 7) >= 5; // 1970-01-01 was a Thursday
    const double base = 0.35 + 0.45 * morning + 0.5 * evening;
    return std::clamp((weekend ? 0.75 : 1.0) * base + 0.03 * jitter(LoadJitter, second / 60), 0.1,
                      1.0);
}

double PowerSystemModel::voltage(int phase, qint64 second, double ms) const
{
    const double nominal = m_config.nominalVoltage;
    // Voltage falls with load through the source impedance; each phase has its own offset.
    const double phaseOffset[] = {0.004, -0.003, 0.001};
    double v = nominal * (1.01 + phaseOffset[phase % 3] - 0.03 * loadFactor(second) +
                          0.002 * jitter(VoltageJitter + phase, second));
    const double at = static_cast<double>(second) + ms / 1000.0;
    // No disturbance lasts longer than five seconds: look only at those that start near.
    auto it = std::lower_bound(m_disturbances.cbegin(), m_disturbances.cend(), second - 5,
                               [](const Disturbance& d, qint64 s) { return d.startSecond < s; });
    for (; it != m_disturbances.cend() && it->startSecond <= second; ++it) {
        const Disturbance& d = *it;
        if (d.channel != phase || d.kind == Disturbance::Kind::Transient)
            continue;
        const double start = static_cast<double>(d.startSecond) + d.startMs / 1000.0;
        if (at >= start && at < start + d.durationMs / 1000.0)
            v = nominal * d.residualPercent / 100.0;
    }
    return v;
}

double PowerSystemModel::lineVoltage(int pair, qint64 second) const
{
    const double a = voltage(pair % 3, second);
    const double b = voltage((pair + 1) % 3, second);
    // Phasors 120 degrees apart: |Va - Vb| = sqrt(a^2 + b^2 + a*b).
    return std::sqrt(a * a + b * b + a * b);
}

double PowerSystemModel::current(int phase, qint64 second) const
{
    if (phase == 3) {
        // Neutral: the phasor sum of slightly unequal phase currents plus triplen harmonics.
        const double ia = current(0, second), ib = current(1, second), ic = current(2, second);
        const double re = ia - 0.5 * ib - 0.5 * ic;
        const double im = std::sqrt(3.0) / 2.0 * (ib - ic);
        const double triplen = (ia + ib + ic) * currentHarmonicPercent(0, 3, second) / 100.0;
        return std::sqrt(re * re + im * im + triplen * triplen);
    }
    const double share[] = {1.0, 0.93, 0.97};
    return m_config.ratedCurrent * loadFactor(second) * share[phase % 3] *
           (1.0 + 0.01 * jitter(CurrentJitter + phase, second));
}

double PowerSystemModel::frequency(qint64 second) const
{
    const double slow = std::sin(2.0 * pi * static_cast<double>(second) / 5400.0);
    return m_config.frequency + 0.015 * slow + 0.005 * jitter(FrequencyJitter, second);
}

double PowerSystemModel::powerFactor(int phase, qint64 second) const
{
    return std::clamp(0.86 + 0.1 * loadFactor(second) +
                          0.01 * jitter(PowerFactorJitter + phase, second / 60),
                      0.80, 0.99);
}

double PowerSystemModel::apparentPower(int phase, qint64 second) const
{
    return voltage(phase, second) * current(phase, second);
}

double PowerSystemModel::realPower(int phase, qint64 second) const
{
    return apparentPower(phase, second) * powerFactor(phase, second);
}

double PowerSystemModel::reactivePower(int phase, qint64 second) const
{
    const double pf = powerFactor(phase, second);
    return apparentPower(phase, second) * std::sqrt(1.0 - pf * pf);
}

double PowerSystemModel::voltageHarmonicPercent(int phase, int order, qint64 second) const
{
    if (order < 2 || order > 50)
        return 0.0;
    // Odd harmonics from rectifier loads dominate and follow the load; even ones are tiny.
    const double typical[] = {0, 0, 0.2, 1.6, 0.1, 2.4, 0.05, 1.3, 0.05, 0.6, 0.05, 0.7, 0.03, 0.5};
    const double base = order < 14 ? typical[order] : (order % 2 ? 0.3 : 0.02) * 13.0 / order;
    const double scale = 0.6 + 0.6 * loadFactor(second);
    return base * scale * (1.0 + 0.05 * jitter(HarmonicJitter + order * 3 + phase, second / 600));
}

double PowerSystemModel::voltageThdPercent(int phase, qint64 second) const
{
    double sum = 0.0;
    for (int h = 2; h <= 50; ++h) {
        const double p = voltageHarmonicPercent(phase, h, second);
        sum += p * p;
    }
    return std::sqrt(sum);
}

double PowerSystemModel::currentHarmonicPercent(int phase, int order, qint64 second) const
{
    if (order < 2 || order > 50)
        return 0.0;
    // A six-pulse drive spectrum: roughly 1/h for the characteristic orders.
    const bool characteristic = order % 2 == 1;
    const double base = characteristic ? 60.0 / order : 0.5;
    return base * (1.0 + 0.05 * jitter(HarmonicJitter + 200 + order * 3 + phase, second / 600));
}

double PowerSystemModel::currentThdPercent(int phase, qint64 second) const
{
    double sum = 0.0;
    for (int h = 2; h <= 50; ++h) {
        const double p = currentHarmonicPercent(phase, h, second);
        sum += p * p;
    }
    return std::sqrt(sum);
}

double PowerSystemModel::pst(int phase, qint64 second) const
{
    const qint64 interval = second / 600;
    return std::max(0.05, 0.35 + 0.4 * loadFactor(interval * 600) +
                              0.15 * jitter(FlickerJitter + phase, interval));
}

double PowerSystemModel::plt(int phase, qint64 second) const
{
    // Cube root of the mean cube of the twelve Pst values of the two-hour window.
    const qint64 windowStart = (second / 7200) * 7200;
    double sum = 0.0;
    for (int i = 0; i < 12; ++i) {
        const double p = pst(phase, windowStart + i * 600);
        sum += p * p * p;
    }
    return std::cbrt(sum / 12.0);
}

double PowerSystemModel::unbalancePercent(qint64 second) const
{
    const double a = voltage(0, second), b = voltage(1, second), c = voltage(2, second);
    const double mean = (a + b + c) / 3.0;
    const double deviation = std::max({std::abs(a - mean), std::abs(b - mean), std::abs(c - mean)});
    return 100.0 * deviation / mean;
}

} // namespace lorvane::sim
