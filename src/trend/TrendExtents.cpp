// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendExtents.h"

#include "IntelligentRange.h"

namespace lorvane {

namespace {

void lower(double& at, double v)
{
    if (!std::isnan(v) && (std::isnan(at) || v < at))
        at = v;
}

void raise(double& at, double v)
{
    if (!std::isnan(v) && (std::isnan(at) || v > at))
        at = v;
}

} // namespace

AxisData TrendExtents::of(const QList<GraphSet>& sets, TrendAxis axis)
{
    AxisData data;
    QList<const QVector<double>*> columns;
    for (const GraphSet& set : sets) {
        if (set.axis != axis)
            continue;
        lower(data.minimum, set.minimum);
        raise(data.maximum, set.maximum);
        lower(data.smallestNonZero, set.smallestNonZero);
        columns << &set.values;
    }
    if (const auto range = IntelligentRange::of(columns)) {
        data.intelligentLow = range->min;
        data.intelligentHigh = range->max;
    }
    return data;
}

std::optional<AxisRange> TrendExtents::timeSpan(const QList<GraphSet>& sets)
{
    std::optional<AxisRange> span;
    for (const GraphSet& set : sets) {
        if (set.times.isEmpty())
            continue;
        if (!span)
            span = AxisRange{set.times.first(), set.times.last()};
        span->min = std::min(span->min, set.times.first());
        span->max = std::max(span->max, set.times.last());
    }
    return span;
}

std::optional<AxisRange> TrendExtents::apply(ExtentsRule rule, const AxisData& data,
                                             double storedNonZero)
{
    if (data.empty())
        return std::nullopt;
    double low = data.minimum;
    double high = data.maximum;
    if (rule == ExtentsRule::NonZero)
        low = std::isnan(data.smallestNonZero) ? storedNonZero : data.smallestNonZero;
    if (rule == ExtentsRule::Intelligent) {
        low = data.intelligentLow;
        high = data.intelligentHigh;
    }
    if (std::isnan(low) || std::isnan(high) || low > high)
        return std::nullopt;
    return withMargin(low, high);
}

AxisRange TrendExtents::withMargin(double low, double high)
{
    const double margin = 0.1 * (high - low);
    return AxisRange{low - margin, high + margin};
}

} // namespace lorvane
