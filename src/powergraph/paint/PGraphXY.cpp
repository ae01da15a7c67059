// SPDX-License-Identifier: GPL-3.0-or-later
// The XY graph of PGraphCanvas: value scale, time axis with clock and date, and the records.
#include "PGraphPicture.h"
#include "graph/NiceTicks.h"
#include "powergraph/PGraphScale.h"
#include "powergraph/PGraphSession.h"
#include "powergraph/PGraphTimeText.h"
#include "powergraph/XYLayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

namespace lorvane {

void PGraphPicture::paintXY(QPainter& painter, const QRectF& area) const
{
    const PGraphView& view = m_session->view();
    const QFontMetricsF metrics(painter.font());
    const XYLayout layout(area.adjusted(0, 0, 0, -2 * metrics.height()),
                          int(m_session->items().size()) + 2);
    const QRectF plot = layout.plot();

    // Value scale: a mark, its text to the left, a grid line across.
    for (double value : PGraphScale::steps(view.minY, view.maxY)) {
        const double y = layout.y(view, value);
        painter.setPen(QPen(m_palette.grid(), 1, Qt::DotLine));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(m_palette.foreground());
        painter.drawLine(QPointF(plot.left() - XYLayout::markLength, y), QPointF(plot.left(), y));
        const double right = plot.left() - XYLayout::markLength - XYLayout::markGap;
        painter.drawText(
            QRectF(area.left(), y - metrics.height() / 2, right - area.left(), metrics.height()),
            Qt::AlignRight | Qt::AlignVCenter, PGraphScale::markText(value));
    }
    // Time axis: clock and calendar steps, each labelled with its time and its date.
    const AxisRange range{double(view.start), double(view.end())};
    const int maxTicks = std::max(2, int(plot.width() / 110));
    for (double t : NiceTicks::time(range, maxTicks).values) {
        const double x = layout.x(view, qint64(t));
        painter.setPen(QPen(m_palette.grid(), 1, Qt::DotLine));
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
        painter.setPen(m_palette.foreground());
        painter.drawLine(QPointF(x, plot.bottom()),
                         QPointF(x, plot.bottom() + XYLayout::markLength));
        const double top = plot.bottom() + XYLayout::markLength + XYLayout::markGap;
        const QRectF label(x - 50, top, 100, metrics.height());
        painter.drawText(label, Qt::AlignCenter, PGraphTimeText::clock(qint64(t)));
        painter.drawText(label.translated(0, metrics.height()), Qt::AlignCenter,
                         PGraphTimeText::monthDay(qint64(t)));
    }
    painter.setPen(QPen(m_palette.foreground(), 1.5));
    painter.drawRect(plot);

    painter.save();
    painter.setClipRect(plot.adjusted(-3, -3, 3, 3));
    for (int i = 0; i < m_session->items().size(); ++i) {
        QPolygonF line;
        if (view.hasScale())
            for (const PGraphRecord& record : m_session->visible(i))
                line << QPointF(layout.x(view, record.time), layout.y(view, record.value));
        painter.setPen(QPen(m_palette.item(i), 1.5));
        if (view.useSymbols) {
            for (const QPointF& p : line)
                painter.drawEllipse(p, 2.5, 2.5);
        } else {
            painter.drawPolyline(line);
        }
    }
    painter.restore();
    painter.setPen(m_palette.foreground());
    paintList(painter, QPointF(area.left() + XYLayout::textColumn, layout.listTop()), true);
}

} // namespace lorvane
