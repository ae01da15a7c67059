// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlotSeries.h"
#include "SeriesDecimation.h"

#include <QVector>
#include <vector>

namespace lorvane {

/// A series with its min/max level-of-detail pyramid: the lowest and highest sample of every
/// block of `blockSize` samples, then of every two blocks, and so on up to one node. It is
/// built once in one pass over the samples; afterwards the extremes of any stretch cost two
/// partial blocks and a few nodes a level, so a zoom over millions of samples draws the same
/// points as SeriesDecimation's full scan at a small part of its cost.
///
/// `x` must ascend. The arrays are shared, not copied (QVector shares its data).
template <typename T> class SeriesPyramid final : public PlotSeries
{
public:
    /// Samples in a leaf block: the leaves are scanned, the levels above are merged.
    static constexpr int blockSize = 16;

    SeriesPyramid() = default;
    /// Arrays of different lengths use the shorter.
    SeriesPyramid(QVector<T> x, QVector<T> y);

    const QVector<T>& x() const { return m_x; }
    const QVector<T>& y() const { return m_y; }
    /// The extremes of samples [first, last], the same indexes as SeriesDecimation::scan.
    SeriesDecimation::Extremes extremes(int first, int last) const;
    /// Levels above the leaves (0 for a series of at most one block).
    int levels() const { return static_cast<int>(m_levels.size()) - 1; }

    int size() const override { return static_cast<int>(m_x.size()); }
    QList<QPointF> points(double xMin, double xMax, int columns) const override;
    std::optional<AxisRange> xRange() const override;
    std::optional<AxisRange> yRange(double xMin, double xMax) const override;
    std::optional<QPointF> sampleNear(double x) const override;

private:
    void build();

    QVector<T> m_x;
    QVector<T> m_y;
    /// The extremes of a block or node with their values, so that merging never reads the
    /// samples again (they are far apart in memory).
    struct Node
    {
        SeriesDecimation::Extremes at;
        T low;
        T high;

        void merge(const Node& other);
    };
    Node nodeOf(int first, int last) const;

    /// m_levels[0][b]: block b; m_levels[k + 1][j]: nodes 2j and 2j + 1 of level k.
    std::vector<std::vector<Node>> m_levels;
};

} // namespace lorvane
