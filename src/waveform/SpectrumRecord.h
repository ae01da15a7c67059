// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// One bin of the quadratic transform: four doubles in this order. Arrays of these records are
/// 1-based: element 0 is unused and element 1 is bin 0 (DC).
struct SpectrumRecord
{
    double real = 0;
    double imag = 0;
    /// Kept for the record layout; never written by the transform.
    double spare = 0;
    double magnitude = 0;
};

} // namespace lorvane
