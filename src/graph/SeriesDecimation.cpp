// SPDX-License-Identifier: GPL-3.0-or-later
#include "SeriesDecimation.h"

#include <algorithm>
#include <array>

namespace lorvane {

std::pair<int, int> SeriesDecimation::visibleRange(const QVector<float>& x, double xMin,
                                                   double xMax)
{
    if (x.isEmpty() || xMax < xMin || xMax < x.first() || xMin > x.last())
        return {0, -1};
    const auto begin = std::lower_bound(x.cbegin(), x.cend(), xMin,
                                        [](float value, double limit) { return value < limit; });
    const auto end = std::upper_bound(x.cbegin(), x.cend(), xMax,
                                      [](double limit, float value) { return limit < value; });
    const int first = std::max(0, static_cast<int>(begin - x.cbegin()) - 1);
    const int last = std::min(static_cast<int>(x.size()) - 1, static_cast<int>(end - x.cbegin()));
    return {first, last};
}

QList<QPointF> SeriesDecimation::decimate(const QVector<float>& x, const QVector<float>& y,
                                          double xMin, double xMax, int columns)
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

    points.reserve(4 * columns + 2);
    const double width = (xMax - xMin) / columns;
    auto columnOf = [&](int i) {
        return std::clamp(static_cast<int>((x[i] - xMin) / width), -1, columns);
    };
    int i = first;
    while (i <= last) {
        const int column = columnOf(i);
        int lowest = i;
        int highest = i;
        int end = i;
        while (end + 1 <= last && columnOf(end + 1) == column) {
            ++end;
            if (y[end] < y[lowest])
                lowest = end;
            if (y[end] > y[highest])
                highest = end;
        }
        std::array<int, 4> picks{i, std::min(lowest, highest), std::max(lowest, highest), end};
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

} // namespace lorvane
