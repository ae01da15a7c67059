// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

namespace lorvane {

class LoadProgress;

/// Magnitude spectrum of real samples through a fast Fourier transform: the figures the
/// quadratic `DftMagnitudes` leaves in its magnitude fields, for the one-cycle harmonic
/// window and the long interharmonic window alike.
class HarmonicSpectrum
{
public:
    enum class Method
    {
        /// The fast transform: what the analysis runs.
        Fast,
        /// The quadratic `DftMagnitudes`: the reference the fast one is held to.
        Quadratic,
    };

    /// |X[k]| / N for k from 0 to N - 1, N = samples.size(), in the units of the samples. Any
    /// N >= 1; an empty input gives an empty result, and so does the quadratic method while
    /// another quadratic transform runs. Both methods agree within 1e-6 of the fundamental for
    /// the window sizes the analysis uses. The quadratic method reports its bins to `progress`
    /// and gives an empty result when cancelled.
    static std::vector<double> magnitudes(std::span<const double> samples,
                                          Method method = Method::Fast,
                                          LoadProgress* progress = nullptr);
};

} // namespace lorvane
