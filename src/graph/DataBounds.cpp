// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataBounds.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

void unite(std::optional<AxisRange>& into, const std::optional<AxisRange>& range)
{
    if (!range)
        return;
    into =
        into ? AxisRange{std::min(into->min, range->min), std::max(into->max, range->max)} : *range;
}

} // namespace

AxisRange DataBounds::withMargin(const AxisRange& range)
{
    const double margin =
        range.span() > 0 ? range.span() / 10 : std::max(1.0, std::abs(range.max) / 10);
    return {range.min - margin, range.max + margin};
}

std::optional<Viewport> DataBounds::of(const QList<std::shared_ptr<const PlotSeries>>& series)
{
    std::optional<AxisRange> x;
    for (const auto& one : series)
        unite(x, one->xRange());
    if (!x)
        return std::nullopt;
    std::optional<AxisRange> y;
    for (const auto& one : series)
        unite(y, one->yRange(x->min, x->max));
    // A single instant still needs an x span to draw on.
    return Viewport{x->span() > 0 ? *x : withMargin(*x), withMargin(y.value_or(AxisRange{0, 0}))};
}

} // namespace lorvane
