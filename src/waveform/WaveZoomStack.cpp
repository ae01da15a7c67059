// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveZoomStack.h"

#include <algorithm>

namespace lorvane {

void WaveZoomStack::reset(Range full)
{
    m_full = full;
    m_range = full;
    m_stack.clear();
}

bool WaveZoomStack::zoomTo(double x0, double x1)
{
    if (!(x1 > x0))
        return false;
    m_stack.append(m_range);
    m_range = {x0, x1};
    return true;
}

bool WaveZoomStack::undo()
{
    if (m_stack.isEmpty())
        return false;
    m_range = m_stack.takeLast();
    return true;
}

void WaveZoomStack::scrollTo(double x0)
{
    const double width = m_range.x1 - m_range.x0;
    const double start = std::clamp(x0, m_full.x0, std::max(m_full.x0, m_full.x1 - width));
    m_range = {start, start + width};
}

} // namespace lorvane
