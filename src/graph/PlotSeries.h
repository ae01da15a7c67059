// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AxisRange.h"

#include <QList>
#include <QPointF>
#include <optional>

namespace lorvane {

/// What a chart canvas asks of one series: the points to draw for a range and a width in
/// pixel columns, the extents for scaling, and the sample under a cursor. SeriesPyramid is the
/// implementation for sampled data; windows with few points may answer directly.
class PlotSeries
{
public:
    virtual ~PlotSeries() = default;

    virtual int size() const = 0;
    /// About two to four points a pixel column over [xMin, xMax], real samples in x order,
    /// with one sample beyond each end.
    virtual QList<QPointF> points(double xMin, double xMax, int columns) const = 0;
    /// First and last x; nothing for an empty series.
    virtual std::optional<AxisRange> xRange() const = 0;
    /// Lowest and highest value (NaN skipped) of the samples drawn for [xMin, xMax]; nothing
    /// when none is a number.
    virtual std::optional<AxisRange> yRange(double xMin, double xMax) const = 0;
    /// The sample whose x is nearest to `x` (the earlier on a tie); nothing when empty.
    virtual std::optional<QPointF> sampleNear(double x) const = 0;
};

} // namespace lorvane
