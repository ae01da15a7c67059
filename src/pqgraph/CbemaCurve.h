// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace lorvane {

/// The built-in CBEMA curve: the tolerance of computer equipment to the magnitude and duration
/// of a supply disturbance, an upper line for swells and a lower one for sags, drawn when the
/// user keeps the old curve or a boundary line file cannot be read.
class CbemaCurve
{
public:
    struct Point
    {
        double seconds;
        double percent;
        bool startsLine;
    };
    /// Colour 9 (light blue) of the sixteen-colour palette.
    static constexpr int color = 9;
    static const std::array<Point, 14>& points();
};

} // namespace lorvane
