// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/PlotSeries.h"

#include <memory>

namespace lorvane {

/// The bar look of a set: every sample drawn as a bar from the base line up (or down) to its
/// value, made as the corners of one line so that the chart's line look draws it. Bars are
/// allowed only for a few thousand points (TrendBarRule), so three corners a sample stay
/// cheap. Extents, read-out and hover are the set's own.
class BarShapeSeries final : public PlotSeries
{
public:
    BarShapeSeries(std::shared_ptr<const PlotSeries> samples, double base);

    int size() const override { return m_samples->size(); }
    QList<QPointF> points(double xMin, double xMax, int columns) const override;
    std::optional<AxisRange> xRange() const override { return m_samples->xRange(); }
    std::optional<AxisRange> yRange(double xMin, double xMax) const override;
    std::optional<QPointF> sampleNear(double x) const override { return m_samples->sampleNear(x); }

private:
    std::shared_ptr<const PlotSeries> m_samples;
    double m_base;
};

} // namespace lorvane
