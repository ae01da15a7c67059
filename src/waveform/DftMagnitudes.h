// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SpectrumRecord.h"

#include <vector>

namespace lorvane {

class LoadProgress;

/// The table-driven quadratic discrete Fourier transform of real samples. Its numbers are part
/// of the behaviour: pi is the literal 3.14159265, the angle step is held in single precision
/// and the tables are built from that rounded step. The spectrum paths use `HarmonicSpectrum`;
/// this transform is the reference they must agree with.
class DftMagnitudes
{
public:
    /// Transforms `input[1..count]` (only `real` is read) into `output[1..count]`: `real` and
    /// `imag` are accumulated, so the caller passes zeroed records, and `magnitude` becomes
    /// |X[k - 1]| / count. Both vectors need at least count + 1 elements. Returns 0 when done;
    /// returns 1 with nothing done when count <= 0, a vector is too short, or a transform is
    /// already running in this process (a pumped event that asks for a second one); returns 2
    /// when `progress` was cancelled, the magnitudes then unset. `progress` gets the share of
    /// bins done after each bin and a text ("Calculating DFT" at the start, "Calculating DFT:
    /// k/count" every fifth bin); its cancel is asked at each bin.
    static int compute(const std::vector<SpectrumRecord>& input,
                       std::vector<SpectrumRecord>& output, int count,
                       LoadProgress* progress = nullptr);
};

} // namespace lorvane
