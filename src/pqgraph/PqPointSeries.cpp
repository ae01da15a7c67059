// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqPointSeries.h"

#include <cmath>

namespace lorvane {

QList<QPointF> PqPointSeries::points(double, double, int) const
{
    // A line's corner outside the view still decides where the line crosses its edge.
    return m_points;
}

std::optional<AxisRange> PqPointSeries::xRange() const
{
    if (m_points.isEmpty())
        return std::nullopt;
    AxisRange range{m_points.first().x(), m_points.first().x()};
    for (const QPointF& p : m_points) {
        range.min = std::min(range.min, p.x());
        range.max = std::max(range.max, p.x());
    }
    return range;
}

std::optional<AxisRange> PqPointSeries::yRange(double xMin, double xMax) const
{
    std::optional<AxisRange> range;
    for (const QPointF& p : m_points) {
        if (p.x() < xMin || p.x() > xMax || std::isnan(p.y()))
            continue;
        if (!range)
            range = AxisRange{p.y(), p.y()};
        range->min = std::min(range->min, p.y());
        range->max = std::max(range->max, p.y());
    }
    return range;
}

std::optional<QPointF> PqPointSeries::sampleNear(double x) const
{
    std::optional<QPointF> best;
    for (const QPointF& p : m_points) {
        if (!best || std::abs(p.x() - x) < std::abs(best->x() - x))
            best = p;
    }
    return best;
}

} // namespace lorvane
