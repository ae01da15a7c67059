// SPDX-License-Identifier: GPL-3.0-or-later
#include "XYLayout.h"

#include "PGraphScale.h"
#include "PGraphView.h"

#include <algorithm>

namespace lorvane {

XYLayout::XYLayout(const QRectF& area, int listLines)
{
    // Under the plot: a mark, its gap, two lines of time text, a free line, then the list.
    const double below = markLength + markGap + 3 * lineStep + listLines * lineStep;
    const double top = area.top() + lineStep;
    const double bottom = std::max(top + lineStep, area.bottom() - below);
    const double left = area.left() + leftMargin;
    const double right = std::max(left + lineStep, area.right() - rightMargin);
    m_plot = QRectF(QPointF(left, top), QPointF(right, bottom));
    m_listTop = bottom + markLength + markGap + 3 * lineStep;
}

double XYLayout::x(const PGraphView& view, qint64 time) const
{
    const double share = double(time - view.start) / double(std::max<qint64>(1, view.spanMs()));
    return m_plot.left() + share * m_plot.width();
}

double XYLayout::y(const PGraphView& view, double value) const
{
    const double share = PGraphScale::share(value, view.minY, view.maxY);
    return m_plot.bottom() - std::max(0.0, share) * m_plot.height();
}

} // namespace lorvane
