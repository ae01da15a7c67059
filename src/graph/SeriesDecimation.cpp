// SPDX-License-Identifier: GPL-3.0-or-later
#include "SeriesDecimation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ranges>

namespace lorvane {

namespace {

/// visibleRange over the first `count` samples of `x`, which are not copied.
template <typename T> std::pair<int, int> rangeOf(const T* x, int count, double xMin, double xMax)
{
    if (count == 0 || xMax < xMin || xMax < x[0] || xMin > x[count - 1])
        return {0, -1};
    const T* begin =
        std::lower_bound(x, x + count, xMin, [](T value, double limit) { return value < limit; });
    const T* end =
        std::upper_bound(x, x + count, xMax, [](double limit, T value) { return limit < value; });
    const int first = std::max(0, static_cast<int>(begin - x) - 1);
    const int last = std::min(count - 1, static_cast<int>(end - x));
    return {first, last};
}

} // namespace

template <typename T>
std::pair<int, int> SeriesDecimation::visibleRange(const QVector<T>& x, double xMin, double xMax)
{
    return rangeOf(x.constData(), static_cast<int>(x.size()), xMin, xMax);
}

template <typename T>
SeriesDecimation::Extremes SeriesDecimation::scan(const QVector<T>& y, int first, int last)
{
    Extremes out{first, first};
    T low = y[first];
    T high = low;
    for (int i = first + 1; i <= last; ++i) {
        const T value = y[i];
        if (beats(value, i, low, out.lowest, true)) {
            low = value;
            out.lowest = i;
        }
        if (beats(value, i, high, out.highest, false)) {
            high = value;
            out.highest = i;
        }
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
    const auto [first, last] = rangeOf(x.constData(), count, xMin, xMax);
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
    // The samples of one column are found by binary search on x, started where an even
    // spread of the samples would end the column and widened by doubling steps: a zoom over
    // millions of samples reads a few places next to each other per column, plus what
    // `extremes` reads.
    auto inColumn = [&](int j, int column) { return columnOf(j) <= column; };
    int i = first;
    while (i <= last) {
        const int column = columnOf(i);
        const int share = (last - i + 1) / std::max(1, columns - column);
        const int guess = std::clamp(i + share - 1, i, last);
        int lo = guess; // in the column
        int hi = guess; // past the column, or last + 1
        if (inColumn(guess, column)) {
            for (int step = 1; hi <= last && inColumn(hi, column); step *= 2) {
                lo = hi;
                hi = std::min(lo + step, last + 1);
            }
        } else {
            for (int step = 1; !inColumn(lo, column); step *= 2) {
                hi = lo;
                lo = std::max(i, hi - step);
            }
        }
        const int end = *std::ranges::partition_point(std::views::iota(lo, hi), [&](int j) {
            return inColumn(j, column);
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
    template SeriesDecimation::Extremes SeriesDecimation::scan(const QVector<T>&, int, int);       \
    template QList<QPointF> SeriesDecimation::decimate(const QVector<T>&, const QVector<T>&,       \
                                                       double, double, int);                       \
    template QList<QPointF> SeriesDecimation::decimate(const QVector<T>&, const QVector<T>&,       \
                                                       double, double, int, const ExtremesOf&);
LORVANE_SERIES_DECIMATION(float)
LORVANE_SERIES_DECIMATION(double)
#undef LORVANE_SERIES_DECIMATION

} // namespace lorvane
