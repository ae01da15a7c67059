// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveformRecord.h"

#include <QString>

namespace lorvane {

/// The texts the waveform window writes on its graphs: axis titles, the trigger and PQ marks,
/// transient peaks and the hover texts. Annotation texts start with their placement code
/// ("|h", "|H", "|t", "|b"), which `WaveMarks::decode` splits off.
class WaveGraphTexts
{
public:
    /// "Volts" for channels 0 to 2, "Current" for 3 to 6, "Inputs" for the inputs; on a 50 Hz
    /// system followed by " (Displaying for 50 Hz system)".
    static QString axisTitle(int channel, int systemFrequency);
    /// "Milliseconds".
    static QString timeTitle();
    /// The trigger mark: "|hTrigger", or "|hTime Mark" for a capture a time mark caused.
    static QString triggerText(const WaveformRecord& record);
    /// "|HPQ-S" and "|HPQ-E": start and end of the linked PQ event.
    static QString pqStartText();
    static QString pqEndText();
    /// "|HIH-S": start of the interharmonic window.
    static QString interharmonicStartText();
    /// Transient peak: "|tPositive 412.50, Duration: 55 nanoseconds" (or "|bNegative ...") for
    /// a peak of `peak` over `count` samples of the detector, each 18.18 ns.
    static QString transientText(bool positive, double peak, int count);
    /// Hover text of a waveform point: "@12.50 Duration = 4.167 ms", the offset from the trigger.
    static QString pointHoverText(double timeMs, double offsetFromTriggerMs);
    /// Hover text of a harmonic bar: ", Harmonic 5 4.00%".
    static QString harmonicHoverText(int harmonic, double percent);
    /// Name of a channel in the overlay views: "V an", "V ab", "V Aux", "I a", "I N" ... from its
    /// label; the label itself for the inputs.
    static QString overlayName(int channel, const QString& label);
};

} // namespace lorvane
