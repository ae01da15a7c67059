// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointF>
#include <QVector>
#include <utility>

namespace lorvane {

/// Thins a long sampled series to what a chart of a given width can show, so that the chart
/// holds a few points per pixel column instead of every sample.
class SeriesDecimation
{
public:
    /// Indexes [first, last] of the samples of `x` (ascending) that draw [xMin, xMax], with one
    /// sample beyond each end so that a line reaches the chart's edges. An empty range gives
    /// {0, -1}. Found by binary search.
    static std::pair<int, int> visibleRange(const QVector<float>& x, double xMin, double xMax);

    /// The points of (x, y) in [xMin, xMax] for a chart `columns` pixels wide: per pixel column
    /// the first, the lowest, the highest and the last sample, in sample order, each once. A
    /// range with at most four samples a column comes back whole. `columns` below 1 counts as 1.
    static QList<QPointF> decimate(const QVector<float>& x, const QVector<float>& y, double xMin,
                                   double xMax, int columns);
};

} // namespace lorvane
