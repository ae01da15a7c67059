// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <array>

namespace lorvane {

/// The header of the open waveform capture: where its row came from, its timing, its wiring
/// and scaling, and what follows it. One capture is current at a time; opening another
/// overwrites it.
struct WaveformRecord
{
    qint32 deviceIndex = 0;
    /// `Index` of the row: the setting index into the capture settings and full scales.
    qint32 logIndex = 0;
    /// 0 a meter of the family without the neutral current, 4 fixed 2048-sample captures,
    /// 5 CSV capture files, others keep the samples in the row.
    qint32 deviceTypeId = 0;
    /// `Date/Time` and `ms` of the row.
    QDateTime triggerTime;
    double triggerMs = 0;
    /// `WTDate/Time` and `WTms`: the trigger.
    QDateTime wtTime;
    double wtMs = 0;
    qint16 endTriggerCycPT = 0;
    /// `SampleInTriggerCyc` times `cycleMultiplier`.
    qint32 pointsInCycle = 0;
    /// Sample number of the trigger (computed from the capture file for device type 5).
    qint32 timingPT = 0;
    qint16 waveformNumber = 0;
    qint16 waveformTriggerNumber = 0;
    bool contiguous = false;
    qint16 captureSequence = 0;
    /// `V0` to `V11` of the row (channel order Van Vbn Vcn Vaux Ia Ib Ic Inm In Vab Vbc Vca).
    std::array<double, 12> rmsValues{};
    /// Samples per channel.
    qint32 sampleCount = 0;
    /// `HookUp` of the capture settings; the low 8 bits select the wiring.
    qint32 hookUp = 0;
    QString hardwareName;
    /// `TriggeredBy1`.
    QString triggeredBy;
    qint16 origFirstWave = 0;
    qint16 origWNumber = 0;
    qint16 origFirstSample = 0;
    /// Display texts of `WSDT`+`WSms`, `WEDT`+`WEms`, and `WDuration`.
    QString waveStartText;
    QString waveEndText;
    QString durationText;
    /// `PTCT_Ratio1` to `PTCT_Ratio4` (PT, PT aux, CT, CTn) as "primary/secondary".
    std::array<QString, 4> ptCtRatio;
    /// `FullScale1` to `FullScale8`.
    std::array<double, 8> fullScale{};
    /// Samples per cycle.
    qint16 sampleRate = 0;
    qint16 mode = 0;
    qint16 captureNum = 0;
    /// Points of the harmonic window: one cycle.
    qint16 pointsInCycle16 = 0;
    /// Which channels the row carries.
    qint32 recordFormat = 0;
    QDateTime wsTime;
    double wsMs = 0;
    QDateTime weTime;
    double weMs = 0;
    qint16 cycleMultiplier = 1;
    /// Channel a partial load keeps; -1 after a full open.
    qint16 loadChannel = -1;
    qint16 systemFlag = 2;
    /// Interharmonic window: samples plus one, and its first sample.
    qint32 windowLength = 0;
    qint32 windowStart = 0;
    /// A contiguous row with `WaveformNumber` + 1 (+ 2) exists, and its `RecCounter` (-1 none).
    bool hasNext1 = false;
    qint32 nextRecCounter1 = -1;
    bool hasNext2 = false;
    qint32 nextRecCounter2 = -1;
    /// `Input_{n}_Label`; an empty label reads "Input {n}".
    std::array<QString, 8> inputLabels;
    /// `Input_{n}_{k}`: 16 state names per input.
    std::array<std::array<QString, 16>, 8> inputStateNames;
    quint8 inputCount = 0;
    /// Full path of the capture file (device type 5).
    QString csvPath;
    /// The capture file says "Transient" in its first cell (device type 5): its samples run
    /// at 1024 a cycle whatever the rate.
    bool transient = false;
    /// `RecCounter` of the row in the query's waveform table.
    qint32 recCounter = -1;
    /// System frequency of the device row (50 or 60).
    int systemFrequency = 60;
};

} // namespace lorvane
