// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveDrawStyle.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <array>

namespace lorvane {

QColor WaveDrawStyle::color(qint32 value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

Qt::PenStyle WaveDrawStyle::penStyle(int lineType)
{
    static constexpr std::array<Qt::PenStyle, 5> styles{Qt::SolidLine, Qt::DashLine, Qt::DotLine,
                                                        Qt::DashDotLine, Qt::DashDotDotLine};
    return lineType >= 0 && lineType < int(styles.size()) ? styles.at(lineType) : Qt::SolidLine;
}

qreal WaveDrawStyle::penWidth(int lineType)
{
    static constexpr std::array<qreal, 10> widths{1, 1, 1, 1, 1, 2, 3, 1.5, 2.5, 4};
    return lineType >= 0 && lineType < int(widths.size()) ? widths.at(lineType) : 1;
}

qreal WaveDrawStyle::pointPixels(int pointSize)
{
    static constexpr std::array<qreal, 4> sizes{5, 7, 10, 3};
    return sizes.at(std::clamp(pointSize, 0, 3));
}

QImage WaveDrawStyle::marker(int pointType, const QColor& color, qreal pixels)
{
    const int side = std::max(3, int(pixels * 2));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.5));
    const QRectF box(1, 1, side - 2, side - 2);
    const QPointF c = box.center();
    // Odd types from 3 on are the solid forms of the shape before them.
    const bool solid = pointType >= 3 && pointType <= 11 && pointType % 2 == 1;
    painter.setBrush(solid ? QBrush(color) : Qt::NoBrush);
    const QPolygonF diamond{
        {c.x(), box.top()}, {box.right(), c.y()}, {c.x(), box.bottom()}, {box.left(), c.y()}};
    const QPolygonF up{{c.x(), box.top()}, box.bottomRight(), box.bottomLeft()};
    const QPolygonF down{box.topLeft(), box.topRight(), {c.x(), box.bottom()}};
    switch (pointType) {
    case 0:
        painter.drawLine(QPointF(c.x(), box.top()), QPointF(c.x(), box.bottom()));
        painter.drawLine(QPointF(box.left(), c.y()), QPointF(box.right(), c.y()));
        break;
    case 1:
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    case 2:
    case 3:
        painter.drawEllipse(box);
        break;
    case 4:
    case 5:
        painter.drawRect(box);
        break;
    case 6:
    case 7:
        painter.drawPolygon(diamond);
        break;
    case 8:
    case 9:
        painter.drawPolygon(up);
        break;
    case 10:
    case 11:
        painter.drawPolygon(down);
        break;
    case 12:
        painter.drawLine(QPointF(box.left(), c.y()), QPointF(box.right(), c.y()));
        break;
    default:
        painter.drawPoint(c);
    }
    return image;
}

} // namespace lorvane
