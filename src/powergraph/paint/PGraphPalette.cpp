// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphPalette.h"

namespace lorvane {

PGraphPalette::PGraphPalette(const PowerGraphDefaults::Colors& colors, bool monochrome)
    : m_colors(colors), m_monochrome(monochrome)
{
}

QColor PGraphPalette::item(int index) const
{
    if (m_monochrome)
        return Qt::black;
    return toColor(m_colors.at(size_t(index) % PowerGraphDefaults::foreground));
}

QColor PGraphPalette::foreground() const
{
    return m_monochrome ? QColor(Qt::black) : toColor(m_colors.at(PowerGraphDefaults::foreground));
}

QColor PGraphPalette::background() const
{
    return m_monochrome ? QColor(Qt::white) : toColor(m_colors.at(PowerGraphDefaults::background));
}

QColor PGraphPalette::grid() const
{
    QColor c = foreground();
    c.setAlphaF(0.35);
    return c;
}

} // namespace lorvane
