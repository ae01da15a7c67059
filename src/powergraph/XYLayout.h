// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QRectF>

namespace lorvane {

struct PGraphView;

/// Where the XY graph stands in its picture, laid out in twips as the chart always was: a
/// left margin of 1450 for the value texts, the item list's text column at 1650, a right
/// margin of 750, and steps of 200 (a text line), 150 (a scale mark) and 50 (the gap between
/// a mark and its text). Pixels are twips / 15, the 96 dpi screen; output scales the painter.
class XYLayout
{
public:
    static constexpr double twipsPerPixel = 15;
    static constexpr double leftMargin = 1450 / twipsPerPixel;
    static constexpr double textColumn = 1650 / twipsPerPixel;
    static constexpr double rightMargin = 750 / twipsPerPixel;
    static constexpr double lineStep = 200 / twipsPerPixel;
    static constexpr double markLength = 150 / twipsPerPixel;
    static constexpr double markGap = 50 / twipsPerPixel;

    /// `area` is the picture below the header; `listLines` the lines of the item list, which
    /// stand under the time axis's two lines of labels.
    XYLayout(const QRectF& area, int listLines);

    /// The plot rectangle.
    const QRectF& plot() const { return m_plot; }
    /// The top of the item list.
    double listTop() const { return m_listTop; }

    /// The x of `time` on a view (may lie outside the plot for a time outside the view).
    double x(const PGraphView& view, qint64 time) const;
    /// The y of `value`, clipped to the plot; the bottom without a scale.
    double y(const PGraphView& view, double value) const;

private:
    QRectF m_plot;
    double m_listTop = 0;
};

} // namespace lorvane
