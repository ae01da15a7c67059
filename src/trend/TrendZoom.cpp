// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendZoom.h"

namespace lorvane {

namespace {

/// Spans are compared with a relative tolerance: 0.8 of 1.25 s is one second exactly to the
/// user, whatever the last bit of the double says.
bool below(double span, double limit)
{
    return span < limit * (1.0 - 1e-9);
}

bool above(double span, double limit)
{
    return span > limit * (1.0 + 1e-9);
}

} // namespace

AxisRange TrendZoom::scaled(const AxisRange& view, double factor)
{
    const double centre = view.centre();
    const double half = view.span() * factor / 2;
    return AxisRange{centre - half, centre + half};
}

std::optional<AxisRange> TrendZoom::viewportXIn(const AxisRange& view, double minSpan)
{
    if (below(view.span() * zoomIn, minSpan))
        return std::nullopt;
    return scaled(view, zoomIn);
}

std::optional<AxisRange> TrendZoom::viewportXOut(const AxisRange& view, double dataXSpan)
{
    if (above(view.span() * zoomOut, maxViewportXShare * dataXSpan))
        return std::nullopt;
    return scaled(view, zoomOut);
}

std::optional<AxisRange> TrendZoom::viewportYIn(const AxisRange& view)
{
    return scaled(view, zoomIn);
}

std::optional<AxisRange> TrendZoom::viewportYOut(const AxisRange& view, double dataYSpan)
{
    if (above(view.span() * zoomOut, maxViewportYShare * dataYSpan))
        return std::nullopt;
    return scaled(view, zoomOut);
}

AxisRange TrendZoom::previewYIn(const AxisRange& view)
{
    return scaled(view, zoomIn);
}

AxisRange TrendZoom::previewYOut(const AxisRange& view)
{
    return scaled(view, zoomOut);
}

AxisRange TrendZoom::previewYShift(const AxisRange& view, bool up)
{
    const double step = shiftShare * view.span() * (up ? 1 : -1);
    return AxisRange{view.min + step, view.max + step};
}

} // namespace lorvane
