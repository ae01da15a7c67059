// SPDX-License-Identifier: GPL-3.0-or-later
#include "SeriesPyramid.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

using Extremes = SeriesDecimation::Extremes;

template <typename T>
SeriesPyramid<T>::SeriesPyramid(QVector<T> x, QVector<T> y) : m_x(std::move(x)), m_y(std::move(y))
{
    const qsizetype count = std::min(m_x.size(), m_y.size());
    m_x.resize(count);
    m_y.resize(count);
    build();
}

template <typename T> void SeriesPyramid<T>::Node::merge(const Node& other)
{
    if (SeriesDecimation::beats(other.low, other.at.lowest, low, at.lowest, true)) {
        low = other.low;
        at.lowest = other.at.lowest;
    }
    if (SeriesDecimation::beats(other.high, other.at.highest, high, at.highest, false)) {
        high = other.high;
        at.highest = other.at.highest;
    }
}

template <typename T>
typename SeriesPyramid<T>::Node SeriesPyramid<T>::nodeOf(int first, int last) const
{
    const Extremes at = SeriesDecimation::scan(m_y, first, last);
    return {at, m_y[at.lowest], m_y[at.highest]};
}

template <typename T> void SeriesPyramid<T>::build()
{
    const int count = size();
    if (count == 0)
        return;
    std::vector<Node> leaves;
    leaves.reserve(static_cast<std::size_t>((count + blockSize - 1) / blockSize));
    for (int first = 0; first < count; first += blockSize)
        leaves.push_back(nodeOf(first, std::min(first + blockSize, count) - 1));
    m_levels.push_back(std::move(leaves));
    while (m_levels.back().size() > 1) {
        const std::vector<Node>& below = m_levels.back();
        std::vector<Node> above((below.size() + 1) / 2);
        for (std::size_t j = 0; j < above.size(); ++j) {
            above[j] = below[2 * j];
            if (2 * j + 1 < below.size())
                above[j].merge(below[2 * j + 1]);
        }
        m_levels.push_back(std::move(above));
    }
}

template <typename T> Extremes SeriesPyramid<T>::extremes(int first, int last) const
{
    const int firstFull = (first + blockSize - 1) / blockSize;
    const int endFull = (last + 1) / blockSize;
    if (endFull <= firstFull)
        return SeriesDecimation::scan(m_y, first, last);

    Node out = first < firstFull * blockSize ? nodeOf(first, firstFull * blockSize - 1)
                                             : m_levels[0][static_cast<std::size_t>(firstFull)];
    if (endFull * blockSize <= last)
        out.merge(nodeOf(endFull * blockSize, last));
    // Blocks [lo, hi) level by level, like a segment tree: an odd bound takes its own node,
    // the rest moves up. `beats` breaks ties by index, so the order of merging is free.
    std::size_t lo = static_cast<std::size_t>(firstFull);
    std::size_t hi = static_cast<std::size_t>(endFull);
    for (const std::vector<Node>& level : m_levels) {
        if (lo >= hi)
            break;
        if (lo & 1U)
            out.merge(level[lo++]);
        if (hi & 1U)
            out.merge(level[--hi]);
        lo /= 2;
        hi /= 2;
    }
    return out.at;
}

template <typename T>
QList<QPointF> SeriesPyramid<T>::points(double xMin, double xMax, int columns) const
{
    return SeriesDecimation::decimate(m_x, m_y, xMin, xMax, columns, [this](int first, int last) {
        return extremes(first, last);
    });
}

template <typename T> std::optional<AxisRange> SeriesPyramid<T>::xRange() const
{
    if (m_x.isEmpty())
        return std::nullopt;
    return AxisRange{double(m_x.first()), double(m_x.last())};
}

template <typename T>
std::optional<AxisRange> SeriesPyramid<T>::yRange(double xMin, double xMax) const
{
    const auto [first, last] = SeriesDecimation::visibleRange(m_x, xMin, xMax);
    if (last < first)
        return std::nullopt;
    const Extremes found = extremes(first, last);
    if (std::isnan(m_y[found.lowest]))
        return std::nullopt;
    return AxisRange{double(m_y[found.lowest]), double(m_y[found.highest])};
}

template <typename T> std::optional<QPointF> SeriesPyramid<T>::sampleNear(double x) const
{
    if (m_x.isEmpty())
        return std::nullopt;
    const auto after = std::lower_bound(m_x.cbegin(), m_x.cend(), x,
                                        [](T value, double limit) { return value < limit; });
    int index = static_cast<int>(after - m_x.cbegin());
    if (index == size() || (index > 0 && x - m_x[index - 1] <= m_x[index] - x))
        --index;
    return QPointF(m_x[index], m_y[index]);
}

template class SeriesPyramid<float>;
template class SeriesPyramid<double>;

} // namespace lorvane
