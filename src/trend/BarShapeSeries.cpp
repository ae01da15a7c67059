// SPDX-License-Identifier: GPL-3.0-or-later
#include "BarShapeSeries.h"

#include <cmath>
#include <limits>

namespace lorvane {

BarShapeSeries::BarShapeSeries(std::shared_ptr<const PlotSeries> samples, double base)
    : m_samples(std::move(samples)), m_base(base)
{
}

QList<QPointF> BarShapeSeries::points(double xMin, double xMax, int columns) const
{
    QList<QPointF> corners;
    const QList<QPointF> samples = m_samples->points(xMin, xMax, columns);
    corners.reserve(samples.size() * 3);
    for (const QPointF& p : samples) {
        if (std::isnan(p.y()))
            continue;
        corners << QPointF(p.x(), m_base) << p << QPointF(p.x(), m_base)
                << QPointF(p.x(), std::numeric_limits<double>::quiet_NaN());
    }
    return corners;
}

std::optional<AxisRange> BarShapeSeries::yRange(double xMin, double xMax) const
{
    std::optional<AxisRange> range = m_samples->yRange(xMin, xMax);
    if (range) {
        range->min = std::min(range->min, m_base);
        range->max = std::max(range->max, m_base);
    }
    return range;
}

} // namespace lorvane
