// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphCanvas.h"

#include "powergraph/paint/PGraphPicture.h"

namespace lorvane {

PGraphCanvas::PGraphCanvas(QWidget* parent) : PictureCanvas(parent)
{
    setMinimumSize(480, 360);
}

void PGraphCanvas::setSession(const PGraphSession* session)
{
    m_session = session;
    update();
}

void PGraphCanvas::setPalette(const PGraphPalette& palette)
{
    m_palette = palette;
    setBackground(palette.background());
}

void PGraphCanvas::paintPicture(QPainter& painter, const QRectF& area)
{
    PGraphPicture(m_session, m_palette).paint(painter, area);
}

} // namespace lorvane
