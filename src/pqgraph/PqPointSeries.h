// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/PlotSeries.h"

namespace lorvane {

/// A few points drawn as they are, in their own order: the events of one channel (in start
/// order, not sorted by duration) or the corners of an envelope line, whose vertical steps
/// repeat a duration. Nothing is thinned: every point is an event the user may point at.
class PqPointSeries : public PlotSeries
{
public:
    explicit PqPointSeries(QList<QPointF> points) : m_points(std::move(points)) {}

    int size() const override { return int(m_points.size()); }
    QList<QPointF> points(double xMin, double xMax, int columns) const override;
    std::optional<AxisRange> xRange() const override;
    std::optional<AxisRange> yRange(double xMin, double xMax) const override;
    std::optional<QPointF> sampleNear(double x) const override;

private:
    QList<QPointF> m_points;
};

} // namespace lorvane
