// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSeries.h"
#include "HarmonicSpectrum.h"

#include <QString>
#include <QVector>

namespace lorvane {

struct WaveformChannels;
struct WaveformRecord;

/// RMS, peak, crest factor, THD and K-factor of the one-cycle stretch of a channel that starts
/// at a clicked point of the open capture, with the harmonic table of that cycle.
class WaveformStatistics
{
public:
    /// The one-cycle stretch: samples `start` to `end` (inclusive), and the cursor sample that
    /// produced it (`moved` when it was moved back so that a whole cycle fits).
    struct Window
    {
        int cursor = 0;
        int start = 0;
        int end = 0;
        bool moved = false;
    };

    /// The harmonic table of one cycle. `percent[m]` is harmonic m in percent of the
    /// fundamental (bin 0 forced to 0, values below 0.2 % suppressed to 0); THD in percent;
    /// K-factor dimensionless. When the spectrum fails (no fundamental, not an analog
    /// channel) `valid` is false, the table is all zero and the texts read "N/A".
    struct Harmonics
    {
        bool valid = false;
        QVector<float> percent;
        double thd = 0;
        /// Only meaningful when `kFactorValid` (current channels).
        double kFactor = 0;
        bool kFactorValid = false;
        QString thdText;
        QString kFactorText;
        /// Bars: x = harmonic number 0 .. N / 2 - 1, y = percent, labels "0", "1", ...
        GraphSeries graph;
    };

    struct ChannelStatistics
    {
        bool rmsValid = false;
        bool peakValid = false;
        /// In the channel's units (volts, amps).
        float rms = 0;
        float peak = 0;
        /// Peak over RMS; only meaningful when `crestValid` (both valid, RMS not 0).
        double crest = 0;
        bool crestValid = false;
        QString rmsText;
        QString peakText;
        QString crestText;
        QString thdText;
        QString kFactorText;
        Window window;
        Harmonics harmonics;
    };

    /// Works on `record` and `channels`, which must outlive this object. `method` chooses the
    /// one-cycle spectrum: the fast transform normally, the quadratic one as a reference.
    WaveformStatistics(const WaveformRecord& record, const WaveformChannels& channels,
                       HarmonicSpectrum::Method method = HarmonicSpectrum::Method::Fast);

    /// The stretch for a click at `cursorMs` milliseconds: the sample of WaveformTimeBase,
    /// moved back when a cycle (`pointsInCycle16` samples) would pass the end. A negative or
    /// non-finite position gives sample 0.
    Window window(double cursorMs) const;

    /// All five values of channel 0 to 14 at `cursorMs` (see `window`). A channel number out of
    /// range, an empty capture or one shorter than a cycle gives "N/A" in all five texts.
    /// Harmonics, THD and K-factor are computed for channels 0 to 6 only.
    ChannelStatistics computeChannelStatistics(int channel, double cursorMs) const;

    /// The harmonic table of channel 0 to 6 over one cycle from sample `start`. K-factor is
    /// "N/A" on the voltage channels 0 to 2. Anything that does not fit fails as described in
    /// `Harmonics`.
    Harmonics computeHarmonics(int channel, int start) const;

    /// The five-line annotation: "RMS:", "Peak:", "Crest:", "%THD:", "K-Fac:" each padded by
    /// blanks and followed by its value, lines joined by a line feed.
    static QString annotationText(const ChannelStatistics& statistics);

    /// Pointer text over harmonic bar `bin` holding `percent`.
    static QString hotSpotText(int bin, double percent);

private:
    Harmonics failedHarmonics(int count) const;

    const WaveformRecord& m_record;
    const WaveformChannels& m_channels;
    HarmonicSpectrum::Method m_method;
};

} // namespace lorvane
