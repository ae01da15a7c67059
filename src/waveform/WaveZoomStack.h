// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

namespace lorvane {

/// The x range of a graph over a whole extent, with the ranges before each zoom kept for
/// "Undo Zoom" and a zoomed range that scrolls inside the extent.
class WaveZoomStack
{
public:
    struct Range
    {
        double x0 = 0;
        double x1 = 1;
        bool operator==(const Range&) const = default;
    };

    /// A new extent: the range shows all of it and the stack is emptied.
    void reset(Range full);
    Range full() const { return m_full; }
    Range range() const { return m_range; }
    /// Shows [x0, x1] and keeps the range before; an empty or reversed range is ignored.
    bool zoomTo(double x0, double x1);
    /// One step back; false with nothing to undo.
    bool undo();
    /// The whole extent, with an empty stack.
    void zoomOut() { reset(m_full); }
    /// Moves the range to start at `x0`, its width kept, inside the extent.
    void scrollTo(double x0);
    int depth() const { return static_cast<int>(m_stack.size()); }

private:
    Range m_full;
    Range m_range;
    QList<Range> m_stack;
};

} // namespace lorvane
