// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

namespace lorvane {

struct WaveformRecord;

/// The milliseconds per sample of a capture and the turn of a time into a sample number. The
/// time axis, a click on the window, a mark and the command line's `--at` all go through here,
/// so that a time never means two samples. The step is never read back from the axis: the
/// axis values are rounded for display (two decimals for database captures, three for capture
/// files) and their differences drift by several percent at the high rates.
class WaveformTimeBase
{
public:
    /// Database captures: 1 / rate / 60 * 1000, held in single precision (50 in place of 60
    /// for device type 0 on a 50 Hz system). Capture files (device type 5): 1 / 61440 s times
    /// 1024 / rate (1024 / 1024 for a transient file) in milliseconds. 0 for a rate below 1.
    static double stepMs(const WaveformRecord& record);

    /// `count` axis values: sample i at i x step, rounded as the axis shows it.
    static QVector<float> axis(const WaveformRecord& record, int count);

    /// The sample at `ms`: ms / step rounded half to even. A negative or non-finite time or a
    /// record without a step gives sample 0. Not bounded by the capture's length.
    static int sampleAt(const WaveformRecord& record, double ms);
};

} // namespace lorvane
