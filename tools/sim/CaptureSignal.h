// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CapturePlan.h"

#include <array>

namespace lorvane::sim {

struct Disturbance;
struct SimMeter;

/// The sampled waveforms of one planned capture. Channels 0..6 are Va, Vb, Vc (phase to
/// neutral, volts), Ia, Ib, Ic and In (amps); 7..14 are the eight digital inputs (0 or 1).
/// Sampling is locked to the nominal frequency, so one cycle is exactly `sampleRate` samples.
class CaptureSignal
{
public:
    static constexpr int analogChannels = 7;
    static constexpr int inputChannels = 8;

    CaptureSignal(const SimMeter& meter, const PlannedCapture& capture);

    /// Value of channel 0..14 at sample `i` (0 to sampleCount - 1) of the whole capture.
    double value(int channel, int i) const;
    /// Whether the hook-up measures analog channel 0..6 (Ib is missing with two CTs, In on a
    /// three-wire delta).
    bool measured(int channel) const;
    /// Steady RMS of the `V0` to `V11` columns (channel numbering Van .. Vca), before any
    /// disturbance of the capture: V3 (Vaux) and V7 (Inm) are 0.
    std::array<double, 12> rmsColumns() const;

private:
    struct Component
    {
        double order;
        double share; ///< amplitude relative to the fundamental
    };
    double shape(int phase, double angle) const;

    const PlannedCapture& m_capture;
    const Disturbance* m_disturbance = nullptr;
    double m_frequency = 60.0;
    double m_nominal = 120.0;
    double m_startAngle = 0.0;
    std::array<double, 3> m_voltage{};
    std::array<double, 4> m_current{};
    std::array<double, 3> m_lag{};
    QList<Component> m_components;
    double m_norm = 1.0;
};

} // namespace lorvane::sim
