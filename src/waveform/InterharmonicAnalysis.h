// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSeries.h"
#include "HarmonicSpectrum.h"

#include <QString>
#include <QVector>
#include <functional>

namespace lorvane {

class LoadProgress;
struct WaveformChannels;
struct WaveformRecord;

/// The interharmonic analysis of one channel of the open capture: a 200 ms window (twelve
/// cycles of a 60 Hz base, 12 x samples-per-cycle points) that may run on into the next one or
/// two contiguous captures, its spectrum at 5 Hz resolution in percent of the fundamental and
/// the interharmonic groups between the harmonics.
class InterharmonicAnalysis
{
public:
    /// Where a system frequency choice comes from. For 60 Hz the group top is 10 at start-up
    /// and from the setting but 9 from the menu: the two paths have always differed.
    enum class FrequencySource
    {
        Setting,
        Menu,
    };

    /// Fills `rows` with the samples of the contiguous capture that follows the open one
    /// (direction 0: the next row, 1: the one after), at least the channel group of
    /// `loadChannel`. Returns false when that row cannot be read; the window then keeps zeros.
    using AdjacentRows =
        std::function<bool(int direction, int loadChannel, WaveformChannels& rows)>;

    struct Preparation
    {
        bool ok = false;
        /// Samples in the window plus one; 0 when the rate is not one of the analysis.
        int windowLength = 0;
        /// The warning to show when not `ok`.
        QString message;
    };

    struct Result
    {
        bool ok = false;
        /// The warning to show when not `ok`; nothing else is filled then.
        QString message;
        int frequency = 60;
        int fundamentalBin = 12;
        int groupTop = 10;
        int windowStart = 0;
        /// The window, `windowLength` points: time in milliseconds and samples.
        QVector<float> time;
        QVector<float> samples;
        /// Percent of the fundamental of bin m (m x 5 Hz), and its square / 100; all zero when
        /// the fundamental bin is empty.
        QVector<float> ampPct;
        QVector<float> sqPct;
        /// Squared percent of each group between harmonics k + 1 and k + 2.
        QVector<float> groupSum;
        GraphSeries trace;
        GraphSeries spectrum;
        GraphSeries groups;
    };

    /// A system of `systemFrequency` Hz (50, anything else is 60) chosen by the setting.
    explicit InterharmonicAnalysis(int systemFrequency = 60);

    /// 50 or 60 Hz (anything else is taken as 60); sets the fundamental bin (10 or 12) and the
    /// group top (8; 10 from the setting, 9 from the menu).
    void setSystemFrequency(int hz, FrequencySource source);
    int systemFrequency() const { return m_systemFrequency; }
    int fundamentalBin() const { return m_systemFrequency / 5; }
    int groupTop() const { return m_groupTop; }

    /// Sets `record.windowLength` from the device type and rate and tells whether the window
    /// from `record.windowStart` can be filled from the capture and its contiguous rows. On a
    /// rate outside 16, 32, 48, 64, 128, 256, 512, 1024 or a window that does not fit, `ok` is
    /// false and `message` says why.
    static Preparation prepare(WaveformRecord& record);

    /// Moves the window start to the sample at `ms` (WaveformTimeBase) minus one if the window
    /// fits there; otherwise keeps the old start. Returns the preparation at the new start.
    static Preparation placeMark(WaveformRecord& record, double ms);

    /// The whole analysis of `channel` (0 to 6) of `capture`. `adjacentRows` serves the
    /// contiguous rows; it may be empty when the capture needs none. A wrong channel, a device
    /// type without interharmonics or a window that does not fit gives `ok` false and the
    /// message, and nothing is computed. Leaves `capture` untouched. `progress` gets the share
    /// done (the following rows read, the transform's bins) and its cancel is asked after each
    /// step: a cancelled run gives `ok` false with no message.
    Result run(WaveformRecord& record, const WaveformChannels& capture, int channel,
               const AdjacentRows& adjacentRows,
               HarmonicSpectrum::Method method = HarmonicSpectrum::Method::Fast,
               LoadProgress* progress = nullptr) const;

    /// Pointer text over the trace at `ms` milliseconds: "Duration = 1.234 ms".
    static QString traceHotSpot(double ms);
    /// Pointer text over a bar of the spectrum or (when `group`) of the groups, `percent` %.
    static QString barHotSpot(bool group, double percent);

private:
    void fillGraphs(Result& result, int sampleRate) const;

    int m_systemFrequency = 60;
    int m_groupTop = 10;
};

} // namespace lorvane
