// SPDX-License-Identifier: GPL-3.0-or-later
#include "CapturePlan.h"

#include "SimMeter.h"

#include <algorithm>
#include <cmath>

namespace lorvane::sim {

namespace {

constexpr int captureFileDevice = 5;
constexpr int fixedLengthDevice = 4;
constexpr int talmoDevice = 0;

/// Setting index of each kind of capture; the periodic ones spread over every rate.
constexpr int eventSetting = 1;
constexpr int transientSetting = 2;

struct PeriodicCapture
{
    PlannedCapture::Content content;
    int setting;
};

constexpr PeriodicCapture periodicCaptures[] = {
    {PlannedCapture::Content::PureSine, 3},      {PlannedCapture::Content::Harmonics, 4},
    {PlannedCapture::Content::Interharmonic, 5}, {PlannedCapture::Content::PureSine, 1},
    {PlannedCapture::Content::Harmonics, 6},     {PlannedCapture::Content::Interharmonic, 7},
    {PlannedCapture::Content::PureSine, 8},      {PlannedCapture::Content::PureSine, 2},
};

/// Whole cycles recorded before the trigger.
int preTriggerCycles(const PlannedCapture& capture)
{
    if (capture.transient)
        return 1;
    return capture.content == PlannedCapture::Content::Disturbance ? 4 : 2;
}

} // namespace

QString PlannedCapture::csvPath() const
{
    return QStringLiteral("csv\\%1_%2.csv")
        .arg(transient ? QStringLiteral("TRANSIENT") : QStringLiteral("WAVEFORM"))
        .arg(firstWaveformNumber, 4, 10, QLatin1Char('0'));
}

QList<CaptureSetting> CapturePlan::settingsFor(int deviceTypeId)
{
    QList<CaptureSetting> settings = {
        {1, 0, 128, -1, 3}, {2, 0, 512, -1, 1}, {3, 0, 16, -1, 1}, {4, 1, 32, -1, 1},
        {5, 2, 64, -1, 2},  {6, 0, 256, 0, 2},  {7, 0, 512, 0, 2}, {8, 0, 256, -1, 1},
    };
    for (CaptureSetting& setting : settings) {
        if (deviceTypeId == fixedLengthDevice) {
            // Every row of this family carries all channels.
            setting.recordFormat = -1;
        } else if (deviceTypeId == captureFileDevice) {
            // One file holds a whole capture, all channels, measured phase to neutral; the
            // transient recorder of this family samples at 1024 points per cycle.
            setting = {setting.index, 0, setting.sampleRate, -1, 1};
            if (setting.index == transientSetting)
                setting.sampleRate = 1024;
        }
    }
    return settings;
}

int CapturePlan::samplesPerRow(int sampleRate, int deviceTypeId)
{
    if (deviceTypeId == fixedLengthDevice)
        return 2048;
    if (sampleRate <= 128)
        return sampleRate == 16 && deviceTypeId == talmoDevice ? 960 : 1024;
    return sampleRate == 256 ? 2048 : 4096;
}

CapturePlan::CapturePlan(const SimMeter& meter) : m_settings(settingsFor(meter.deviceTypeId))
{
    const QList<Disturbance>& disturbances = meter.model->disturbances();
    const double frequency = meter.model->config().frequency;

    auto plan = [&](PlannedCapture::Content content, int setting, CaptureStamp trigger) {
        PlannedCapture capture;
        capture.content = content;
        capture.setting = m_settings.at(setting - 1);
        capture.samplesPerRow = samplesPerRow(capture.setting.sampleRate, meter.deviceTypeId);
        capture.trigger = trigger;
        capture.stepMs = 1000.0 / (frequency * capture.setting.sampleRate);
        return capture;
    };

    for (int i = 0; i < disturbances.size(); ++i) {
        const Disturbance& d = disturbances.at(i);
        const bool transient = d.kind == Disturbance::Kind::Transient;
        PlannedCapture capture =
            plan(PlannedCapture::Content::Disturbance, transient ? transientSetting : eventSetting,
                 {d.startSecond, d.startMs});
        capture.disturbance = i;
        capture.transient = transient;
        m_captures << capture;
    }

    // Periodic captures spread over the period, kept clear of every disturbance so that
    // their content is exactly what the plan says.
    const qint64 span = meter.endSecond - meter.startSecond;
    const qint64 count = std::size(periodicCaptures);
    for (qint64 k = 0; k < count; ++k) {
        qint64 second = meter.startSecond + (k + 1) * span / (count + 1);
        auto nearDisturbance = [&](qint64 s) {
            return std::any_of(disturbances.cbegin(), disturbances.cend(),
                               [s](const auto& d) { return std::abs(d.startSecond - s) < 10; });
        };
        while (nearDisturbance(second))
            second += 30;
        const PeriodicCapture& periodic = periodicCaptures[k];
        m_captures << plan(periodic.content, periodic.setting,
                           {second, 100.0 * static_cast<double>(k)});
    }

    std::stable_sort(m_captures.begin(), m_captures.end(), [](const auto& a, const auto& b) {
        return a.trigger.msSince(b.trigger) < 0.0;
    });
    int waveformNumber = 1;
    int recCounter = 1;
    for (PlannedCapture& capture : m_captures) {
        capture.triggerSample = preTriggerCycles(capture) * capture.setting.sampleRate;
        capture.firstWaveformNumber = waveformNumber;
        capture.firstRecCounter = recCounter;
        waveformNumber += capture.setting.rows;
        recCounter += capture.setting.rows;
    }
}

const PlannedCapture* CapturePlan::forDisturbance(int index) const
{
    for (const PlannedCapture& capture : m_captures) {
        if (capture.disturbance == index)
            return &capture;
    }
    return nullptr;
}

} // namespace lorvane::sim
