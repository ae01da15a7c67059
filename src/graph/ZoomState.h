// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AxisRange.h"

#include <QList>

namespace lorvane {

/// The zoom of one chart: the bounds of its data, the view shown, and the views to go back to.
/// Every view passes the same limits: it lies inside the bounds (a larger one becomes the
/// bounds, one beside them is moved back in) and spans at least the minimum of each axis (a
/// narrower one is widened about its centre). A rubber band or a command pushes a view; a
/// gesture (wheel steps, a pan) slides: its first step keeps the view before it for undo and
/// the later steps replace each other, so one undo undoes the whole gesture.
class ZoomState
{
public:
    /// The smallest span a view may have on each axis (0: no limit).
    struct Limits
    {
        double minXSpan = 0;
        double minYSpan = 0;
    };

    /// New data: the view becomes `bounds` and the undo steps are dropped.
    void setBounds(const Viewport& bounds);
    void setLimits(const Limits& limits);
    const Viewport& bounds() const { return m_bounds; }
    const Viewport& view() const { return m_view; }
    /// Steps that `undo` can take.
    int depth() const { return static_cast<int>(m_previous.size()); }
    bool zoomed() const { return m_view != m_bounds; }

    /// `view` within the limits; false (and no undo step) when that is the view shown.
    bool push(const Viewport& view);
    /// One step of a gesture (see above); false when the view stays.
    bool slide(const Viewport& view);
    /// Back one step; false at the start.
    bool undo();
    /// Back to the bounds, dropping every step; false when nothing changed.
    bool reset();

    /// The view scaled by `factor` (below 1 zooms in) about the point (x, y), on the axes
    /// chosen; the point stays where it is on the screen. Within the limits.
    Viewport zoomedAbout(double x, double y, double factor, bool onX, bool onY) const;
    /// The view moved by (dx, dy), stopping at the bounds.
    Viewport panned(double dx, double dy) const;
    /// `view` within the limits.
    Viewport fitted(const Viewport& view) const;

private:
    Viewport m_bounds;
    Viewport m_view;
    Limits m_limits;
    QList<Viewport> m_previous;
    bool m_sliding = false;
};

} // namespace lorvane
