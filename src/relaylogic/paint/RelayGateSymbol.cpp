// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayGateSymbol.h"

#include <QPainter>
#include <QPainterPath>

namespace lorvane {

namespace {

using G = RelayGateByte;

bool negated(int type)
{
    return type >= G::Nand;
}

/// The body of the gate without its output ring, in a box whose right edge leaves room for it.
QPainterPath body(const QRectF& b, int type)
{
    QPainterPath path;
    const int base = type % 4;
    if (base == G::And) {
        path.moveTo(b.topLeft());
        path.lineTo(b.center().x(), b.top());
        path.arcTo(QRectF(b.center().x() - b.width() / 2, b.top(), b.width(), b.height()), 90,
                   -180);
        path.lineTo(b.bottomLeft());
        path.closeSubpath();
    } else if (base == G::Hysteresis) {
        path.addRect(b);
    } else {
        const double bulge = b.width() * 0.25;
        path.moveTo(b.topLeft());
        path.quadTo(QPointF(b.left() + b.width() * 0.6, b.top()),
                    QPointF(b.right(), b.center().y()));
        path.quadTo(QPointF(b.left() + b.width() * 0.6, b.bottom()), b.bottomLeft());
        path.quadTo(QPointF(b.left() + bulge, b.center().y()), b.topLeft());
        path.closeSubpath();
    }
    return path;
}

/// The open strokes on or behind the body: the loop of a hysteresis gate, the second curve of
/// an XOR.
QPainterPath strokes(const QRectF& b, int type)
{
    QPainterPath path;
    const int base = type % 4;
    if (base == G::Hysteresis) {
        // The loop: it switches on at a higher level than it switches off.
        // It stands in the right half; the gate's letter takes the left.
        const double x0 = b.left() + b.width() * 0.52;
        const double x1 = b.left() + b.width() * 0.64;
        const double x2 = b.left() + b.width() * 0.76;
        const double x3 = b.left() + b.width() * 0.88;
        const double low = b.center().y() + b.height() * 0.2;
        const double high = b.center().y() - b.height() * 0.2;
        path.moveTo(x0, low);
        path.lineTo(x2, low);
        path.lineTo(x2, high);
        path.moveTo(x1, low);
        path.lineTo(x1, high);
        path.lineTo(x3, high);
    } else if (base == G::Xor) {
        const double bulge = b.width() * 0.25;
        const double gap = b.width() * 0.12;
        path.moveTo(b.left() - gap, b.top());
        path.quadTo(QPointF(b.left() - gap + bulge, b.center().y()),
                    QPointF(b.left() - gap, b.bottom()));
    }
    return path;
}

QRectF bodyBox(const QRectF& box, int type)
{
    const double ring = RelayGateSymbol::ring(box);
    return QRectF(box.left(), box.top(), box.width() - (negated(type) ? ring : 0.0), box.height());
}

void drawRing(QPainter& painter, const QPointF& centre, double diameter)
{
    painter.save();
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, diameter / 2, diameter / 2);
    painter.restore();
}

} // namespace

double RelayGateSymbol::ring(const QRectF& box)
{
    return std::max(4.0, box.height() * 0.2);
}

QPointF RelayGateSymbol::pin(const QRectF& box, int pin)
{
    return QPointF(box.left(), box.top() + box.height() * (pin == 0 ? 0.25 : 0.75));
}

QRectF RelayGateSymbol::labelBox(const QRectF& box, const RelayGateByte& gate)
{
    const QRectF b = bodyBox(box, gate.type);
    switch (gate.type % 4) {
    case G::And:
        return QRectF(b.left(), b.top(), b.width() * 0.7, b.height());
    case G::Hysteresis:
        return QRectF(b.left(), b.top(), b.width() * 0.5, b.height());
    default:
        return QRectF(b.left() + b.width() * 0.2, b.top(), b.width() * 0.5, b.height());
    }
}

QPointF RelayGateSymbol::output(const QRectF& box)
{
    return QPointF(box.right(), box.center().y());
}

void RelayGateSymbol::draw(QPainter& painter, const QRectF& box, const RelayGateByte& gate)
{
    const QRectF b = bodyBox(box, gate.type);
    painter.drawPath(body(b, gate.type));
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(strokes(b, gate.type));
    painter.restore();
    const double d = ring(box);
    if (negated(gate.type))
        drawRing(painter, QPointF(b.right() + d / 2, b.center().y()), d);
    if (gate.firstInverted)
        drawRing(painter, pin(box, 0) - QPointF(d / 2, 0), d);
    if (gate.secondInverted)
        drawRing(painter, pin(box, 1) - QPointF(d / 2, 0), d);
}

} // namespace lorvane
