// SPDX-License-Identifier: GPL-3.0-or-later
#include "BankersRounding.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

int BankersRounding::toInt(double value)
{
    if (!std::isfinite(value))
        return 0;
    // nearbyint follows the default rounding mode, which is to nearest with ties to even.
    return static_cast<int>(std::nearbyint(std::clamp(value, -1e9, 1e9)));
}

} // namespace lorvane
