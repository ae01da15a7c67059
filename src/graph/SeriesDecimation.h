// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointF>
#include <QVector>
#include <cmath>
#include <functional>
#include <utility>

namespace lorvane {

/// Thins a long sampled series to what a chart of a given width can show, so that the chart
/// holds a few points per pixel column instead of every sample. Works on float (capture
/// channels) and double (time stamps, values read as doubles) arrays.
class SeriesDecimation
{
public:
    /// Indexes of the lowest and the highest sample of a stretch: the first of equal values,
    /// NaN samples (gaps) skipped; a stretch with no number gives its first index for both.
    struct Extremes
    {
        int lowest = 0;
        int highest = 0;
    };
    /// The extremes of samples [first, last] (both inside the series, first <= last).
    using ExtremesOf = std::function<Extremes(int first, int last)>;

    /// Indexes [first, last] of the samples of `x` (ascending) that draw [xMin, xMax], with one
    /// sample beyond each end so that a line reaches the chart's edges. An empty range gives
    /// {0, -1}. Found by binary search.
    template <typename T>
    static std::pair<int, int> visibleRange(const QVector<T>& x, double xMin, double xMax);

    /// The points of (x, y) in [xMin, xMax] for a chart `columns` pixels wide: per pixel column
    /// the first, the lowest, the highest and the last sample, in sample order, each once. A
    /// range with at most four samples a column comes back whole. `columns` below 1 counts as 1.
    /// The extremes are found by scanning every sample of the range.
    template <typename T>
    static QList<QPointF> decimate(const QVector<T>& x, const QVector<T>& y, double xMin,
                                   double xMax, int columns);
    /// The same points, with the extremes of each column taken from `extremes`: a caller that
    /// keeps them precomputed (SeriesPyramid) answers a zoom without touching every sample.
    template <typename T>
    static QList<QPointF> decimate(const QVector<T>& x, const QVector<T>& y, double xMin,
                                   double xMax, int columns, const ExtremesOf& extremes);

    /// The extremes of y[first..last] by scanning.
    template <typename T> static Extremes scan(const QVector<T>& y, int first, int last);
    /// The one rule that picks between two candidates for the lowest (`lower`) or highest
    /// sample: whether `a` at index `ia` beats `b` at index `ib`. A number beats NaN, a
    /// smaller (larger) value wins, and on a tie the earlier index; so the scan and any order
    /// of merging blocks give the same index.
    template <typename T> static bool beats(T a, int ia, T b, int ib, bool lower)
    {
        if (std::isnan(a) != std::isnan(b))
            return std::isnan(b);
        if (lower ? a < b : a > b)
            return true;
        if (lower ? b < a : b > a)
            return false;
        return ia < ib;
    }
};

} // namespace lorvane
