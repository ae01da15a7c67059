// SPDX-License-Identifier: GPL-3.0-or-later
// The circular chart of PGraphCanvas: dial, scale rings, hour or date marks and the records.
#include "PGraphPicture.h"
#include "powergraph/CircularChart.h"
#include "powergraph/PGraphScale.h"
#include "powergraph/PGraphSession.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

namespace lorvane {

void PGraphPicture::paintCircle(QPainter& painter, const QRectF& area) const
{
    const PGraphView& view = m_session->view();
    const double listWidth = std::min(300.0, area.width() * 0.36);
    const QRectF dialArea(area.left(), area.top(), area.width() - listWidth, area.height());
    const QFontMetricsF metrics(painter.font());
    const double labelWidth = metrics.horizontalAdvance(QStringLiteral("00:00:00"));
    const double margin = CircularChart::tickGap + 1.75 * CircularChart::tickLength +
                          labelWidth / 2 + metrics.height();
    const CircularChart::Dial dial = CircularChart::dial(dialArea, margin);
    const QPointF centre = dial.centre;
    const double r = dial.radius;
    if (r <= 0)
        return;

    // Scale rings, one per step, with their value on the upward radius.
    painter.setPen(QPen(m_palette.grid(), 1, Qt::DotLine));
    for (double value : PGraphScale::steps(view.minY, view.maxY)) {
        const double ring = PGraphScale::share(value, view.minY, view.maxY) * r;
        if (ring > 0)
            painter.drawPolygon(QPolygonF(CircularChart::circle(centre, ring)));
    }
    // Spokes and marks round the dial.
    const QList<double> angles = CircularChart::tickAngles(r);
    for (double a : angles) {
        const double theta = CircularChart::tickAngle(a);
        painter.setPen(QPen(m_palette.grid(), 1, Qt::DotLine));
        painter.drawLine(centre, centre + CircularChart::offset(theta, r));
        painter.setPen(QPen(m_palette.foreground(), 1));
        painter.drawLine(centre + CircularChart::offset(theta, r + CircularChart::tickGap),
                         centre + CircularChart::offset(theta, r + CircularChart::tickGap +
                                                                   CircularChart::tickLength));
        const QString text = CircularChart::tickLabel(view, a);
        const double w = metrics.horizontalAdvance(text);
        const QPointF at =
            centre + CircularChart::offset(theta, r + CircularChart::tickGap +
                                                      1.75 * CircularChart::tickLength +
                                                      std::abs(std::sin(a * M_PI / 180)) * w / 2);
        painter.drawText(
            QRectF(at.x() - w / 2 - 2, at.y() - metrics.height() / 2, w + 4, metrics.height()),
            Qt::AlignCenter, text);
    }
    // The dial itself, point by point round the turn.
    painter.setPen(QPen(m_palette.foreground(), 1.5));
    painter.drawPolygon(QPolygonF(CircularChart::circle(centre, r)));

    for (int i = 0; i < m_session->items().size(); ++i) {
        QPolygonF line;
        for (const PGraphRecord& record : m_session->visible(i))
            if (const std::optional<QPointF> p =
                    CircularChart::recordPoint(view, record.time, record.value, centre, r))
                line << *p;
        painter.setPen(QPen(m_palette.item(i), 1.5));
        if (view.useSymbols) {
            for (const QPointF& p : line)
                painter.drawEllipse(p, 2.5, 2.5);
        } else {
            painter.drawPolyline(line);
        }
    }
    // The rings' values over the records, on the paper's colour so that a line under them
    // does not hide them.
    painter.setPen(m_palette.foreground());
    for (double value : PGraphScale::steps(view.minY, view.maxY)) {
        const double ring = PGraphScale::share(value, view.minY, view.maxY) * r;
        const QString text = PGraphScale::markText(value);
        const QRectF box(centre.x() + 2, centre.y() - ring + 1, metrics.horizontalAdvance(text) + 4,
                         metrics.height());
        painter.fillRect(box, m_palette.background());
        painter.drawText(box, Qt::AlignCenter, text);
    }
    paintList(painter, QPointF(dialArea.right() + 10, area.top() + 10), false);
}

} // namespace lorvane
