// SPDX-License-Identifier: GPL-3.0-or-later
#include "CoarseSeries.h"

#include <algorithm>

namespace lorvane {

CoarseSeries::CoarseSeries(std::shared_ptr<const PlotSeries> samples, int share)
    : m_samples(std::move(samples)), m_share(std::max(1, share))
{
}

int CoarseSeries::shareFor(int sets)
{
    return std::clamp((sets + 7) / 8, 1, 4);
}

QList<QPointF> CoarseSeries::points(double xMin, double xMax, int columns) const
{
    return m_samples->points(xMin, xMax, std::max(1, columns / m_share));
}

} // namespace lorvane
