// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSet.h"
#include "graph/AxisRange.h"

#include <QList>

namespace lorvane {

/// How the sets are drawn (`IDM_VIEW_GTYPE_LINE`, `_BAR`, `_POINT`).
enum class TrendGraphType
{
    Line,
    Bar,
    Point,
};

/// Bars need room: more than `maxBarPoints` samples in the viewport would draw a solid block,
/// so the bar type is refused there and the type stays.
class TrendBarRule
{
public:
    static constexpr qint64 maxBarPoints = 2000;

    /// Samples of all sets with a time inside `x` (both ends included).
    static qint64 pointsIn(const QList<GraphSet>& sets, const AxisRange& x);
    static bool allows(qint64 points) { return points <= maxBarPoints; }
};

} // namespace lorvane
