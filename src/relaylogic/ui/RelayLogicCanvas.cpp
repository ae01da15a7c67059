// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicCanvas.h"

#include "relaylogic/paint/RelayLogicPicture.h"

namespace lorvane {

RelayLogicCanvas::RelayLogicCanvas(QWidget* parent) : PictureCanvas(parent)
{
    setObjectName(QStringLiteral("Picture1"));
    setMinimumSize(480, 240);
}

void RelayLogicCanvas::setTree(std::optional<RelayLogicTree> tree)
{
    m_tree = std::move(tree);
    update();
}

void RelayLogicCanvas::paintPicture(QPainter& painter, const QRectF& area)
{
    if (m_tree)
        RelayLogicPicture::paint(painter, area, *m_tree);
}

} // namespace lorvane
