// SPDX-License-Identifier: GPL-3.0-or-later
#include "IntelligentRange.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace lorvane {

std::optional<AxisRange> IntelligentRange::of(const QList<const QVector<double>*>& columns)
{
    qsizetype total = 0;
    for (const QVector<double>* column : columns)
        total += column->size();
    const qsizetype stride = std::max<qsizetype>(1, (total + sampleLimit - 1) / sampleLimit);
    std::vector<double> picked;
    picked.reserve(size_t(std::min(total, sampleLimit) + 1));
    qsizetype position = 0;
    for (const QVector<double>* column : columns) {
        for (double v : *column) {
            if (position++ % stride == 0 && !std::isnan(v))
                picked.push_back(v);
        }
    }
    if (picked.empty())
        return std::nullopt;
    auto at = [&picked](double share) {
        const size_t k = size_t(std::llround(share * double(picked.size() - 1)));
        std::nth_element(picked.begin(), picked.begin() + qsizetype(k), picked.end());
        return picked[k];
    };
    const double low = at(lowShare);
    const double high = at(highShare);
    const double reach = 0.1 * (high - low);
    AxisRange range{low, high};
    for (const QVector<double>* column : columns) {
        for (double v : *column) {
            if (v < range.min && v >= low - reach)
                range.min = v;
            else if (v > range.max && v <= high + reach)
                range.max = v;
        }
    }
    return range;
}

} // namespace lorvane
