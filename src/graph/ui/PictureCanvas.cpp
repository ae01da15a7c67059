// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureCanvas.h"

#include <QPainter>

namespace lorvane {

PictureCanvas::PictureCanvas(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureCanvas::setBackground(const QColor& color)
{
    m_background = color;
    update();
}

void PictureCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), m_background);
    paintPicture(painter, QRectF(rect()));
}

} // namespace lorvane
