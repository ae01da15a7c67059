// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PowerSystemModel.h"

#include <array>

namespace lorvane::sim {

/// The aggregated values a power quality meter forms from the supply: 10-second frequency,
/// 10-minute voltage, unbalance and harmonic values, 2-hour long-term flicker. Spans are
/// aligned to the clock (a 10-minute value covers [t, t + 600) with t a multiple of 600), as
/// a meter synchronised to its clock forms them. Every value is a pure function of the model
/// and the span's start, so a test can recompute any of them.
class SupplyAggregator
{
public:
    static constexpr qint64 frequencySpan = 10; ///< seconds of one frequency value
    static constexpr qint64 intervalSpan = 600; ///< seconds of one 10-minute value
    static constexpr qint64 flickerSpan = 7200; ///< seconds of one long-term flicker value
    static constexpr qint64 sampleStep = 10;    ///< spacing of the samples of an interval
    static constexpr int firstHarmonic = 2;
    static constexpr int lastHarmonic = 25;
    static constexpr int harmonicCount = lastHarmonic - firstHarmonic + 1;

    /// The 10-minute values of one interval, per phase A, B, C.
    struct Interval
    {
        std::array<double, 3> voltage{}; ///< RMS of the interval's samples, volts
        std::array<double, 3> extreme{}; ///< RMS value furthest from nominal, volts
        double unbalance = 0.0;          ///< mean negative-sequence unbalance, percent
        /// Harmonic voltage of orders 2..25 in percent of the fundamental.
        std::array<std::array<double, harmonicCount>, 3> harmonic{};
        std::array<double, 3> thd{}; ///< total harmonic distortion, percent
    };

    explicit SupplyAggregator(const PowerSystemModel& model) : m_model(model) {}

    /// Mean frequency (Hz) of the ten one-second values from `start`.
    double frequency(qint64 start) const;
    /// The 10-minute values of [start, start + 600). The voltage and unbalance values average
    /// the samples every 10 s; the extreme also takes in every dip and swell that overlaps the
    /// interval on that phase, however short; harmonics and THD are taken at the middle of
    /// the interval, where the model holds them steady apart from the slow load cycle.
    Interval interval(qint64 start) const;
    /// Long-term flicker severity Plt per phase of the 2-hour window from `start`.
    std::array<double, 3> longTermFlicker(qint64 start) const;

    /// The first multiple of `span` (seconds, > 0) at or after `second`.
    static qint64 alignUp(qint64 second, qint64 span);

private:
    const PowerSystemModel& m_model;
};

} // namespace lorvane::sim
