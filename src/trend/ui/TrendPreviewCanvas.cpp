// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendPreviewCanvas.h"

#include <QMouseEvent>
#include <QPainter>

namespace lorvane {

TrendPreviewCanvas::TrendPreviewCanvas(QWidget* parent) : ChartCanvas(parent)
{
    setToolTip(tr("Drag the window to move the Viewport; drag its edges to resize it"));
}

void TrendPreviewCanvas::setWindow(const AxisRange& x)
{
    m_window = x;
    viewport()->update();
}

std::pair<double, double> TrendPreviewCanvas::windowEdges() const
{
    return {positionOf(QPointF(m_window.min, 0)).x(), positionOf(QPointF(m_window.max, 0)).x()};
}

void TrendPreviewCanvas::drawForeground(QPainter* painter, const QRectF& rect)
{
    ChartCanvas::drawForeground(painter, rect);
    const QRectF plot = chart()->plotArea();
    const QPointF left = chart()->mapToPosition(QPointF(m_window.min, 0));
    const QPointF right = chart()->mapToPosition(QPointF(m_window.max, 0));
    const QRectF shown(QPointF(std::clamp(left.x(), plot.left(), plot.right()), plot.top()),
                       QPointF(std::clamp(right.x(), plot.left(), plot.right()), plot.bottom()));
    painter->save();
    painter->setPen(QPen(QColor(30, 60, 160), 2));
    painter->setBrush(QColor(30, 60, 160, 40));
    painter->drawRect(shown);
    painter->restore();
}

void TrendPreviewCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        ChartCanvas::mousePressEvent(event);
        return;
    }
    const double at = event->position().x();
    const auto [left, right] = windowEdges();
    m_pressX = valueAt(event->position()).x();
    if (std::abs(at - left) <= edgeGrip) {
        m_grip = Grip::Left;
    } else if (std::abs(at - right) <= edgeGrip) {
        m_grip = Grip::Right;
    } else {
        m_grip = Grip::Body;
        if (at < left || at > right) // a press beside the window brings it there
            move(AxisRange{m_pressX - m_window.span() / 2, m_pressX + m_window.span() / 2});
    }
    m_pressWindow = m_window;
    event->accept();
}

void TrendPreviewCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_grip) {
        ChartCanvas::mouseMoveEvent(event);
        return;
    }
    const double moved = valueAt(event->position()).x() - m_pressX;
    AxisRange x = m_pressWindow;
    if (*m_grip != Grip::Right)
        x.min += moved;
    if (*m_grip != Grip::Left)
        x.max += moved;
    if (x.min < x.max)
        move(x);
    event->accept();
}

void TrendPreviewCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_grip) {
        ChartCanvas::mouseReleaseEvent(event);
        return;
    }
    m_grip.reset();
    event->accept();
}

void TrendPreviewCanvas::wheelEvent(QWheelEvent* event)
{
    // The Preview always shows the whole span: its wheel does not zoom.
    event->ignore();
}

void TrendPreviewCanvas::move(const AxisRange& x)
{
    emit windowMoved(x);
}

} // namespace lorvane
