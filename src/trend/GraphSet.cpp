// SPDX-License-Identifier: GPL-3.0-or-later
#include "GraphSet.h"

namespace lorvane {

void GraphSet::summarise()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    minimum = maximum = smallestNonZero = nan;
    for (double v : values) {
        if (std::isnan(v))
            continue;
        if (std::isnan(minimum) || v < minimum)
            minimum = v;
        if (std::isnan(maximum) || v > maximum)
            maximum = v;
        if (v != 0 && (std::isnan(smallestNonZero) || v < smallestNonZero))
            smallestNonZero = v;
    }
}

} // namespace lorvane
