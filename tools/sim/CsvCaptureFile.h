// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane::sim {

class CaptureSignal;
struct PlannedCapture;
struct SimMeter;

/// The comma-separated capture file that meters of the capture-file family leave beside
/// their database: a header of labelled rows (channels with their ids, trigger counter,
/// transient details, one-cycle results, ADC factors), the sample transfer rows from which
/// the trigger sample is found, and the samples in ADC counts.
class CsvCaptureFile
{
public:
    /// Channel ids of the analog channels in file order (Va, Vb, Vc, Ia, Ib, Ic, In).
    static constexpr int channelIds[] = {0, 1, 2, 37, 38, 39, 40};

    /// Volts or amps per count of channel id `id` with the meter's ratios; `withBlock` when
    /// the file carries its own ADC factors (transient files do).
    static double countScale(const SimMeter& meter, int id, bool withBlock);

    /// The trigger counter that the file's header and its matching transfer row carry.
    static int triggerCounter(const PlannedCapture& capture);

    /// Writes the file of `capture` at meter.folder + its `sample0` path, creating the
    /// folder; an existing file is replaced whole. Throws StorageError (ReadOnly, with the
    /// path) when the folder or file cannot be written.
    static void write(const SimMeter& meter, const PlannedCapture& capture,
                      const CaptureSignal& signal);
};

} // namespace lorvane::sim
