// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/PlotSeries.h"

#include <memory>

namespace lorvane {

/// A set drawn at a coarser level of detail: its points for a chart `columns` wide are those
/// of a chart `share` times narrower, so each group of `share` pixel columns still shows its
/// first, lowest, highest and last sample. Many sets in one chart draw their lines on top of
/// each other; a coarser line for each keeps every peak and dip at a share of the points the
/// chart library has to lay out. Extents, read-out and hover stay the set's own.
class CoarseSeries final : public PlotSeries
{
public:
    CoarseSeries(std::shared_ptr<const PlotSeries> samples, int share);

    /// The share for `sets` lines in one chart: 1 up to 8 sets, then one more column for each
    /// further 8 sets, at most 4.
    static int shareFor(int sets);

    int size() const override { return m_samples->size(); }
    QList<QPointF> points(double xMin, double xMax, int columns) const override;
    std::optional<AxisRange> xRange() const override { return m_samples->xRange(); }
    std::optional<AxisRange> yRange(double xMin, double xMax) const override
    {
        return m_samples->yRange(xMin, xMax);
    }
    std::optional<QPointF> sampleNear(double x) const override { return m_samples->sampleNear(x); }

private:
    std::shared_ptr<const PlotSeries> m_samples;
    int m_share;
};

} // namespace lorvane
