// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CaptureStamp.h"

#include <QList>
#include <QString>

namespace lorvane::sim {

struct SimMeter;

/// One capture setting of a meter: a row of `PQWaveLogDataItem` and the `Index` that the
/// waveform and PQ rows carry. `hookUp` 0 is a four-wire wye, 1 a three-wire delta, 2 a
/// three-wire delta with two CTs (Ib is not measured).
struct CaptureSetting
{
    int index = 1;
    int hookUp = 0;
    int sampleRate = 128;  ///< samples per cycle
    int recordFormat = -1; ///< -1 every channel in one row; 0.. one channel group per row
    int rows = 1;          ///< rows per capture: the first and its contiguous followers
};

/// One capture that the waveform log holds, as both capture writers see it.
struct PlannedCapture
{
    enum class Content
    {
        PureSine,
        Harmonics,
        Interharmonic,
        Disturbance
    };

    Content content = Content::PureSine;
    int disturbance = -1; ///< index into the model's disturbances, -1 for a periodic capture
    bool transient = false;
    CaptureSetting setting;
    int samplesPerRow = 1024; ///< samples per channel in one row (or in the CSV file)
    int firstWaveformNumber = 1;
    int firstRecCounter = 1;
    CaptureStamp trigger;  ///< the trigger instant, equal to the disturbance start
    int triggerSample = 0; ///< sample number of the trigger within the whole capture
    double stepMs = 0.0;   ///< time between samples

    int sampleCount() const { return samplesPerRow * setting.rows; }
    int lastWaveformNumber() const { return firstWaveformNumber + setting.rows - 1; }
    /// First sample of the capture.
    CaptureStamp start() const { return trigger.plus(-triggerSample * stepMs); }
    /// Instant of sample `i` of the whole capture.
    CaptureStamp sampleTime(int i) const { return start().plus(i * stepMs); }
    /// `sample0` of a capture file meter: `csv\WAVEFORM_0007.csv` or `csv\TRANSIENT_0007.csv`.
    QString csvPath() const;
};

/// The captures of a meter's period, numbered once so that the waveform writer and the PQ
/// writer agree on `WaveformNumber`, `RecCounter` and `Index` even when they write into
/// different files. One capture per disturbance of the supply model plus eight periodic
/// captures of known content, in trigger order; numbers run from 1.
class CapturePlan
{
public:
    explicit CapturePlan(const SimMeter& meter);

    const QList<PlannedCapture>& captures() const { return m_captures; }
    /// The settings rows of the meter's device type, by `Index` from 1.
    const QList<CaptureSetting>& settings() const { return m_settings; }
    /// The capture of disturbance `index`; nullptr when it has none.
    const PlannedCapture* forDisturbance(int index) const;

    /// `SWNumber` and `EWNumber` of the PQ row whose capture is missing on purpose.
    static constexpr int missingWaveformNumber = 9999;

    /// The settings table of a device type (4 fixed 2048 samples, 5 capture files, others
    /// samples in the row).
    static QList<CaptureSetting> settingsFor(int deviceTypeId);
    /// Samples per channel in one row at a rate on a device type.
    static int samplesPerRow(int sampleRate, int deviceTypeId);

private:
    QList<CaptureSetting> m_settings;
    QList<PlannedCapture> m_captures;
};

} // namespace lorvane::sim
