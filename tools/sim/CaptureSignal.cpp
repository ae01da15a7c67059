// SPDX-License-Identifier: GPL-3.0-or-later
#include "CaptureSignal.h"

#include "SimMeter.h"
#include "SimRandom.h"

#include <cmath>

namespace lorvane::sim {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double phaseStep = 2.0 * pi / 3.0;

} // namespace

CaptureSignal::CaptureSignal(const SimMeter& meter, const PlannedCapture& capture)
    : m_capture(capture)
{
    const PowerSystemModel& model = *meter.model;
    m_frequency = model.config().frequency;
    m_nominal = model.config().nominalVoltage;
    if (capture.disturbance >= 0)
        m_disturbance = &model.disturbances().at(capture.disturbance);

    // The steady supply of the second before the trigger, so that the event itself never
    // leaks into the pre-trigger level.
    const qint64 second = capture.trigger.second - 1;
    for (int p = 0; p < 3; ++p) {
        m_voltage[p] = model.voltage(p, second);
        m_current[p] = model.current(p, second);
        m_lag[p] = std::acos(model.powerFactor(p, second));
    }
    m_current[3] = model.current(3, second);
    m_startAngle = pi * (1.0 + SimRandom::noise(meter.seed, 77,
                                                static_cast<quint64>(capture.firstWaveformNumber)));

    switch (capture.content) {
    case PlannedCapture::Content::Harmonics:
        m_components = {{1.0, 1.0}, {5.0, 0.04}, {7.0, 0.03}};
        break;
    case PlannedCapture::Content::Interharmonic:
        m_components = {{1.0, 1.0}, {1.5, 0.05}};
        break;
    default:
        m_components = {{1.0, 1.0}};
        break;
    }
    double sum = 0.0;
    for (const Component& c : m_components)
        sum += c.share * c.share;
    m_norm = std::sqrt(sum);
}

double CaptureSignal::shape(int phase, double angle) const
{
    // Unit RMS whatever the content, so that the amplitude alone sets the RMS.
    double v = 0.0;
    for (const Component& c : m_components)
        v += c.share * std::sin(c.order * (angle - phase * phaseStep));
    return std::sqrt(2.0) * v / m_norm;
}

bool CaptureSignal::measured(int channel) const
{
    const int hookUp = m_capture.setting.hookUp;
    if (channel == 4)
        return hookUp != 2;
    if (channel == 6)
        return hookUp == 0;
    return channel >= 0 && channel < analogChannels;
}

double CaptureSignal::value(int channel, int i) const
{
    const double sinceTrigger = static_cast<double>(i - m_capture.triggerSample) /
                                (m_frequency * m_capture.setting.sampleRate);
    const int rate = m_capture.setting.sampleRate;
    if (channel >= analogChannels) {
        // Input 1 marks the trigger, input 2 toggles every cycle, input 8 is held on.
        switch (channel - analogChannels) {
        case 0:
            return sinceTrigger >= 0.0 ? 1.0 : 0.0;
        case 1:
            return (i / rate) % 2;
        case 7:
            return 1.0;
        default:
            return 0.0;
        }
    }
    const double angle = m_startAngle + 2.0 * pi * m_frequency * sinceTrigger;
    if (channel >= 3) {
        const int phase = channel - 3;
        if (phase == 3)
            return m_current[3] * shape(0, angle - pi / 6.0);
        return m_current[phase] * shape(phase, angle - m_lag[phase]);
    }

    double rms = m_voltage[channel];
    double spike = 0.0;
    if (m_disturbance && m_disturbance->channel == channel && sinceTrigger >= 0.0) {
        const double durationS = m_disturbance->durationMs / 1000.0;
        if (sinceTrigger < durationS) {
            if (m_disturbance->kind == Disturbance::Kind::Transient)
                spike =
                    m_disturbance->transientPeakVolts * std::exp(-sinceTrigger / (durationS / 3.0));
            else
                rms = m_nominal * m_disturbance->residualPercent / 100.0;
        }
    }
    return rms * shape(channel, angle) + spike;
}

std::array<double, 12> CaptureSignal::rmsColumns() const
{
    std::array<double, 12> v{};
    for (int p = 0; p < 3; ++p) {
        v[p] = m_voltage[p];
        v[4 + p] = measured(3 + p) ? m_current[p] : 0.0;
        // Line voltage per component: |a - b e^(-j h 120 deg)|, summed in power.
        const int q = (p + 1) % 3;
        double sum = 0.0;
        for (const Component& c : m_components) {
            const double a = m_voltage[p] * c.share / m_norm;
            const double b = m_voltage[q] * c.share / m_norm;
            const double shift = c.order * phaseStep * (q - p);
            sum += a * a + b * b - 2.0 * a * b * std::cos(shift);
        }
        v[9 + p] = std::sqrt(sum);
    }
    v[8] = measured(6) ? m_current[3] : 0.0;
    return v;
}

} // namespace lorvane::sim
