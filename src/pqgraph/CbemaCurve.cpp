// SPDX-License-Identifier: GPL-3.0-or-later
#include "CbemaCurve.h"

namespace lorvane {

const std::array<CbemaCurve::Point, 14>& CbemaCurve::points()
{
    static constexpr std::array<Point, 14> curve{{
        {0.0001666, 500, true},
        {0.001, 200, false},
        {0.003, 140, false},
        {0.003, 120, false},
        {0.5, 120, false},
        {0.5, 110, false},
        {100, 110, false},
        {0.02, 0, true},
        {0.02, 70, false},
        {0.5, 70, false},
        {0.5, 80, false},
        {10, 80, false},
        {10, 90, false},
        {100, 90, false},
    }};
    return curve;
}

} // namespace lorvane
