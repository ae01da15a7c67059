// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "powergraph/PGraphModule.h"

#include <QColor>

namespace lorvane {

/// The colours one power graph is drawn in: the six channels, foreground and background of
/// its chart kind, or black on white for a print without "Color Printout".
class PGraphPalette
{
public:
    PGraphPalette() = default;
    PGraphPalette(const PowerGraphDefaults::Colors& colors, bool monochrome);

    QColor item(int index) const;
    QColor foreground() const;
    QColor background() const;
    /// A faint tone of the foreground for the scale rings and grid lines.
    QColor grid() const;

    static QColor toColor(const PGraphColor& c) { return QColor(c.red, c.green, c.blue); }

private:
    PowerGraphDefaults::Colors m_colors =
        PowerGraphDefaults::factoryColors(PGraphView::Kind::Circular);
    bool m_monochrome = false;
};

} // namespace lorvane
