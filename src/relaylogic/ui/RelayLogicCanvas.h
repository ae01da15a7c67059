// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ui/PictureCanvas.h"
#include "relaylogic/RelayLogicTree.h"

#include <optional>

namespace lorvane {

/// `Picture1` of the relay logic window: the tree drawn by RelayLogicPicture, the same drawing
/// for the screen, the printer and the picture files.
class RelayLogicCanvas : public PictureCanvas
{
    Q_OBJECT

public:
    explicit RelayLogicCanvas(QWidget* parent = nullptr);

    /// Shows `tree`; none shows an empty picture.
    void setTree(std::optional<RelayLogicTree> tree);
    QSize sizeHint() const override { return QSize(960, 460); }

protected:
    void paintPicture(QPainter& painter, const QRectF& area) override;

private:
    std::optional<RelayLogicTree> m_tree;
};

} // namespace lorvane
