// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqScatterCanvas.h"

#include "ClassicPalette.h"
#include "pqgraph/PqGraphSession.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <cmath>
#include <vector>

namespace lorvane {

namespace {

constexpr int markerSize = 7;
/// Pixels from an event within which the pointer reads it.
constexpr double hitRadius = 6;

QPixmap marker(const QColor& color)
{
    QPixmap pixmap(markerSize + 2, markerSize + 2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color.darker(150), 1));
    painter.setBrush(color);
    painter.drawEllipse(QRectF(1, 1, markerSize, markerSize));
    return pixmap;
}

} // namespace

PqScatterCanvas::PqScatterCanvas(const PqGraphSession& session, QWidget* parent)
    : ChartCanvas(parent), m_session(session)
{
}

QPointF PqScatterCanvas::chartPoint(double seconds, double percent) const
{
    const QRectF plot = chart()->plotArea();
    const Viewport& view = zoom().view();
    return {plot.left() + (std::log10(seconds) - view.x.min) / view.x.span() * plot.width(),
            plot.top() + (view.y.max - percent) / view.y.span() * plot.height()};
}

std::optional<PqScatterCanvas::Hit> PqScatterCanvas::eventAt(const QPointF& at) const
{
    const QPointF target = chart()->mapFromScene(mapToScene(at.toPoint()));
    std::optional<Hit> best;
    double bestDistance = hitRadius;
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        const QList<QPointF> points = m_session.graphPoints(c);
        if (m_session.events()[c].isEmpty())
            continue;
        for (qsizetype i = 0; i < points.size(); ++i) {
            const QPointF p = chartPoint(points[i].x(), points[i].y());
            const double distance = std::hypot(p.x() - target.x(), p.y() - target.y());
            if (distance <= bestDistance) {
                bestDistance = distance;
                best = Hit{c, i};
            }
        }
    }
    return best;
}

void PqScatterCanvas::drawForeground(QPainter* painter, const QRectF& rect)
{
    const QRectF plot = chart()->plotArea();
    const int width = int(plot.width()) + 1;
    const int height = int(plot.height()) + 1;
    painter->save();
    painter->setClipRect(plot);
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        if (m_session.events()[c].isEmpty())
            continue;
        const QPixmap dot = marker(ClassicPalette::channel(c));
        // One stamp a pixel: events on the same pixel look the same, however many.
        std::vector<bool> stamped(std::size_t(width) * std::size_t(height), false);
        for (const QPointF& point : m_session.graphPoints(c)) {
            const QPointF at = chartPoint(point.x(), point.y());
            const int px = int(at.x() - plot.left());
            const int py = int(at.y() - plot.top());
            if (px < 0 || py < 0 || px >= width || py >= height || !std::isfinite(at.x()))
                continue;
            const std::size_t cell = std::size_t(py) * std::size_t(width) + std::size_t(px);
            if (stamped[cell])
                continue;
            stamped[cell] = true;
            painter->drawPixmap(
                QPointF(at.x() - markerSize / 2.0 - 1, at.y() - markerSize / 2.0 - 1), dot);
        }
    }
    painter->restore();
    ChartCanvas::drawForeground(painter, rect);
    if (m_hover && !m_eventText.isEmpty()) {
        const QPointF at = chartPoint(m_session.graphPoints(m_hover->channel)[m_hover->index].x(),
                                      m_session.graphPoints(m_hover->channel)[m_hover->index].y());
        painter->save();
        const QFontMetrics metrics(painter->font());
        QRectF box(at + QPointF(8, 8),
                   QSizeF(metrics.horizontalAdvance(m_eventText) + 8, metrics.height() + 6));
        if (box.right() > plot.right())
            box.moveRight(at.x() - 8);
        if (box.bottom() > plot.bottom())
            box.moveBottom(at.y() - 8);
        painter->setPen(QPen(QColor(0, 0, 160), 1.5));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(at, 5, 5);
        painter->setPen(QColor(60, 60, 60));
        painter->setBrush(QColor(255, 255, 225, 235));
        painter->drawRect(box);
        painter->drawText(box.adjusted(4, 3, -4, -3), Qt::AlignLeft | Qt::AlignVCenter,
                          m_eventText);
        painter->restore();
    }
}

void PqScatterCanvas::mouseMoveEvent(QMouseEvent* event)
{
    ChartCanvas::mouseMoveEvent(event);
    if (event->buttons() != Qt::NoButton)
        return;
    m_hover = eventAt(event->position());
    m_eventText.clear();
    if (m_hover) {
        const PqEvent& found = m_session.events()[m_hover->channel][m_hover->index];
        m_eventText = m_session.eventText(m_hover->channel, found);
    }
    viewport()->update();
}

void PqScatterCanvas::leaveEvent(QEvent* event)
{
    m_hover.reset();
    m_eventText.clear();
    ChartCanvas::leaveEvent(event);
}

} // namespace lorvane
