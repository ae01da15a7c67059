// SPDX-License-Identifier: GPL-3.0-or-later
#include "ZoomState.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

/// `range` inside `bound` and at least `minSpan` wide (as far as the bound allows).
AxisRange fitAxis(AxisRange range, const AxisRange& bound, double minSpan)
{
    if (!std::isfinite(range.min) || !std::isfinite(range.max))
        return bound;
    if (range.max < range.min)
        std::swap(range.min, range.max);
    const double span = std::max(range.span(), minSpan);
    if (span >= bound.span())
        return bound;
    // Only a view that had to widen is recomputed: a view within the limits stays exact.
    if (span != range.span())
        range = {range.centre() - span / 2, range.centre() + span / 2};
    if (range.min < bound.min)
        range = {bound.min, bound.min + span};
    if (range.max > bound.max)
        range = {bound.max - span, bound.max};
    return range;
}

/// `range` scaled by `factor` about `at`, no narrower than `minSpan`.
AxisRange scaleAbout(const AxisRange& range, double at, double factor, double minSpan)
{
    if (range.span() <= 0)
        return range;
    const double span = std::max(range.span() * factor, std::min(minSpan, range.span()));
    const double scale = span / range.span();
    return {at - (at - range.min) * scale, at + (range.max - at) * scale};
}

} // namespace

void ZoomState::setBounds(const Viewport& bounds)
{
    m_bounds = bounds;
    m_view = bounds;
    m_previous.clear();
    m_sliding = false;
}

void ZoomState::setLimits(const Limits& limits)
{
    m_limits = limits;
}

Viewport ZoomState::fitted(const Viewport& view) const
{
    return {fitAxis(view.x, m_bounds.x, m_limits.minXSpan),
            fitAxis(view.y, m_bounds.y, m_limits.minYSpan)};
}

bool ZoomState::push(const Viewport& view)
{
    m_sliding = false;
    const Viewport next = fitted(view);
    if (next == m_view)
        return false;
    m_previous.append(m_view);
    m_view = next;
    return true;
}

bool ZoomState::slide(const Viewport& view)
{
    const Viewport next = fitted(view);
    if (next == m_view)
        return false;
    if (!m_sliding)
        m_previous.append(m_view);
    m_sliding = true;
    m_view = next;
    return true;
}

bool ZoomState::undo()
{
    m_sliding = false;
    if (m_previous.isEmpty())
        return false;
    m_view = m_previous.takeLast();
    return true;
}

bool ZoomState::reset()
{
    m_sliding = false;
    m_previous.clear();
    if (m_view == m_bounds)
        return false;
    m_view = m_bounds;
    return true;
}

Viewport ZoomState::zoomedAbout(double x, double y, double factor, bool onX, bool onY) const
{
    Viewport next = m_view;
    if (onX)
        next.x = scaleAbout(m_view.x, x, factor, m_limits.minXSpan);
    if (onY)
        next.y = scaleAbout(m_view.y, y, factor, m_limits.minYSpan);
    return fitted(next);
}

Viewport ZoomState::panned(double dx, double dy) const
{
    return fitted({{m_view.x.min + dx, m_view.x.max + dx}, {m_view.y.min + dy, m_view.y.max + dy}});
}

} // namespace lorvane
