// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendGraphType.h"

#include <algorithm>

namespace lorvane {

qint64 TrendBarRule::pointsIn(const QList<GraphSet>& sets, const AxisRange& x)
{
    qint64 points = 0;
    for (const GraphSet& set : sets) {
        const auto first = std::lower_bound(set.times.cbegin(), set.times.cend(), x.min);
        const auto last = std::upper_bound(first, set.times.cend(), x.max);
        points += last - first;
    }
    return points;
}

} // namespace lorvane
