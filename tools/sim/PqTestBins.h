// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PowerSystemModel.h"
#include "PqTestSettings.h"
#include "SimSchedule.h"

#include <array>

namespace lorvane::sim {

/// The counts of one EN 50160 test period as a meter keeps them in `bin_1` to `bin_170` of
/// its test row, with the meter's own verdict per criterion. The layout of the bins is kept
/// in docs/sim/compliance.md. A value counts only when the meter measured the supply for its
/// whole span: no value is counted while it is without supply or in test mode. Events are
/// counted as the PQ log holds them, all of them.
class PqTestBins
{
public:
    static constexpr int binCount = 170;

    /// The criteria in the order of the `S_` and `P_` columns.
    enum class Criterion
    {
        Frequency,
        LongSlowVoltage,
        FastVoltage,
        Flicker,
        Unbalance,
        Harmonics,
        Thd
    };
    static constexpr int criterionCount = 7;

    // First bins of the groups (1-based column numbers).
    static constexpr int periodSecondsBin = 1;
    static constexpr int frequencyCountBin = 2; ///< N1
    static constexpr int intervalCountBin = 3;  ///< N2
    static constexpr int flickerCountBin = 4;   ///< N3
    static constexpr int frequencyBins = 5;     ///< 10 bins
    static constexpr int slowVoltageBins = 15;  ///< 5 per phase
    static constexpr int fastVoltageBins = 30;  ///< 6 per phase
    static constexpr int flickerBins = 48;      ///< 2 per phase
    static constexpr int unbalanceBins = 54;    ///< 3
    static constexpr int harmonicBins = 57;     ///< 24 per phase, orders 2..25
    static constexpr int thdBins = 129;         ///< 1 per phase
    static constexpr int dipCountBin = 132;
    static constexpr int swellCountBin = 133;
    static constexpr int shortInterruptionBin = 134;
    static constexpr int longInterruptionBin = 135;
    static constexpr int sagDepthBins = 136;      ///< 6, by residual voltage
    static constexpr int sagDurationBins = 142;   ///< 6, by duration
    static constexpr int swellHeightBins = 148;   ///< 5, by magnitude
    static constexpr int swellDurationBins = 153; ///< 6, by duration
    static constexpr int dipPhaseBins = 159;      ///< per phase A, B, C
    static constexpr int interruptionPhaseBins = 162;
    static constexpr int swellPhaseBins = 165;
    static constexpr int transientPhaseBins = 168;

    /// A dip of up to this many milliseconds is a short interruption, longer ones are long.
    static constexpr double shortInterruptionMs = 180000.0;

    /// Counts the test period [start, end) (seconds, end > start) of the model's supply;
    /// `schedule` is the whole simulated period's, which says when the meter was down or in
    /// test mode. A period longer than a week overflows the two-byte count N1: the caller
    /// cuts the test into weeks.
    static PqTestBins measure(const PowerSystemModel& model, const SimSchedule& schedule,
                              qint64 start, qint64 end);

    /// Value of `bin_{number}`, number 1..170; 0 outside that range.
    double bin(int number) const;
    /// The meter's verdict on a criterion under its test settings: 1 passed, 0 failed.
    int status(Criterion criterion, const PqTestSettings& settings = {}) const;
    /// The test parameter the meter holds for a criterion (the `P_` column).
    static double parameter(Criterion criterion, const PqTestSettings& settings = {});

private:
    void add(int number, double count = 1.0);
    double sum(int first, int count) const;

    std::array<double, binCount> m_bins{};
};

} // namespace lorvane::sim
