// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphPalette.h"
#include "graph/ui/PictureCanvas.h"

namespace lorvane {

class PGraphSession;

/// The picture of a power graph, drawn with the painter's lines, points, circles and text
/// alone: the header with the view's period and the record count, the circular chart or the
/// XY graph, the item list with "Max" and "Min", and the comment block. The same painting
/// serves the screen, the printer, the clipboard and the picture files.
class PGraphCanvas : public PictureCanvas
{
    Q_OBJECT

public:
    explicit PGraphCanvas(QWidget* parent = nullptr);

    /// The session drawn (kept by the caller; null draws an empty picture).
    void setSession(const PGraphSession* session);
    void setPalette(const PGraphPalette& palette);
    const PGraphPalette& graphPalette() const { return m_palette; }

protected:
    void paintPicture(QPainter& painter, const QRectF& area) override;

private:
    /// The header lines; returns the area left below them.
    QRectF paintHeader(QPainter& painter, const QRectF& area) const;
    /// The item list from `topLeft`, one block per item; `compact` puts Max and Min on the
    /// item's line (the XY graph's list under its plot).
    void paintList(QPainter& painter, const QPointF& topLeft, bool compact) const;
    void paintComment(QPainter& painter, const QRectF& area) const;
    void paintCircle(QPainter& painter, const QRectF& area) const;
    void paintXY(QPainter& painter, const QRectF& area) const;

    const PGraphSession* m_session = nullptr;
    PGraphPalette m_palette;
};

} // namespace lorvane
