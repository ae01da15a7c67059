// SPDX-License-Identifier: GPL-3.0-or-later
#include "SeriesDecimation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ranges>

namespace lorvane {

template <typename T>
std::pair<int, int> SeriesDecimation::visibleRange(const QVector<T>& x, double xMin, double xMax)
{
    if (x.isEmpty() || xMax < xMin || xMax < x.first() || xMin > x.last())
        return {0, -1};
    const auto begin = std::lower_bound(x.cbegin(), x.cend(), xMin,
                                        [](T value, double limit) { return value < limit; });
    const auto end = std::upper_bound(x.cbegin(), x.cend(), xMax,
                                      [](double limit, T value) { return limit < value; });
    const int first = std::max(0, static_cast<int>(begin - x.cbegin()) - 1);
    const int last = std::min(static_cast<int>(x.size()) - 1, static_cast<int>(end - x.cbegin()));
    return {first, last};
}

template <typename T> int SeriesDecimation::better(const QVector<T>& y, int a, int b, bool lower)
{
    const T va = y[a];
    const T vb = y[b];
    if (std::isnan(va) != std::isnan(vb))
        return std::isnan(va) ? b : a;
    const bool bWins = lower ? vb < va : vb > va;
    if (bWins)
        return b;
    const bool aWins = lower ? va < vb : va > vb;
    return aWins ? a : std::min(a, b);
}

template <typename T>
SeriesDecimation::Extremes SeriesDecimation::scan(const QVector<T>& y, int first, int last)
{
    Extremes out{first, first};
    for (int i = first + 1; i <= last; ++i) {
        out.lowest = better(y, out.lowest, i, true);
        out.highest = better(y, out.highest, i, false);
    }
    return out;
}

template <typename T>
QList<QPointF> SeriesDecimation::decimate(const QVector<T>& x, const QVector<T>& y, double xMin,
                                          double xMax, int columns)
{
    return decimate(x, y, xMin, xMax, columns,
                    [&y](int first, int last) { return scan(y, first, last); });
}

template <typename T>
QList<QPointF> SeriesDecimation::decimate(const QVector<T>& x, const QVector<T>& y, double xMin,
                                          double xMax, int columns, const ExtremesOf& extremes)
{
    QList<QPointF> points;
    const int count = static_cast<int>(std::min(x.size(), y.size()));
    const auto [first, last] = visibleRange(x.first(count), xMin, xMax);
    if (last < first)
        return points;
    columns = std::max(columns, 1);
    const int inRange = last - first + 1;
    if (inRange <= 4 * columns) {
        points.reserve(inRange);
        for (int i = first; i <= last; ++i)
            points.append(QPointF(x[i], y[i]));
        return points;
    }

    points.reserve(4 * columns + 8);
    const double width = (xMax - xMin) / columns;
    auto columnOf = [&](int i) {
        return std::clamp(static_cast<int>((x[i] - xMin) / width), -1, columns);
    };
    // The samples of one column are found by binary search on x: a zoom over millions of
    // samples costs a few steps per column plus what `extremes` costs.
    const auto indexes = std::views::iota(first, last + 1);
    int i = first;
    while (i <= last) {
        const int column = columnOf(i);
        const int end = *std::ranges::partition_point(indexes, [&](int j) {
            return columnOf(j) <= column;
        }) - 1;
        const Extremes found = extremes(i, end);
        const std::array<int, 4> picks{i, std::min(found.lowest, found.highest),
                                       std::max(found.lowest, found.highest), end};
        int previous = -1;
        for (int pick : picks) {
            if (pick != previous)
                points.append(QPointF(x[pick], y[pick]));
            previous = pick;
        }
        i = end + 1;
    }
    return points;
}

#define LORVANE_SERIES_DECIMATION(T)                                                               \
    template std::pair<int, int> SeriesDecimation::visibleRange(const QVector<T>&, double,         \
                                                                double);                           \
    template int SeriesDecimation::better(const QVector<T>&, int, int, bool);                      \
    template SeriesDecimation::Extremes SeriesDecimation::scan(const QVector<T>&, int, int);       \
    template QList<QPointF> SeriesDecimation::decimate(const QVector<T>&, const QVector<T>&,       \
                                                       double, double, int);                       \
    template QList<QPointF> SeriesDecimation::decimate(const QVector<T>&, const QVector<T>&,       \
                                                       double, double, int, const ExtremesOf&);
LORVANE_SERIES_DECIMATION(float)
LORVANE_SERIES_DECIMATION(double)
#undef LORVANE_SERIES_DECIMATION

} // namespace lorvane
