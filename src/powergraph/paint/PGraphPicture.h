// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphPalette.h"

#include <QPointF>
#include <QRectF>

class QPainter;

namespace lorvane {

class PGraphSession;

/// The picture of a power graph, drawn with the painter's lines, points, circles and text
/// alone: the header with the view's period and the record count, the circular chart or the
/// XY graph, the item list with "Max" and "Min", and the comment block. The window, the
/// printer, the clipboard and the command line's picture files all draw through it.
class PGraphPicture
{
public:
    /// `session` is kept by the caller; null draws an empty picture.
    PGraphPicture(const PGraphSession* session, const PGraphPalette& palette);

    void paint(QPainter& painter, const QRectF& area) const;

private:
    /// The header lines; returns the area left below them.
    QRectF paintHeader(QPainter& painter, const QRectF& area) const;
    /// The item list from `topLeft`, one block per item; `compact` puts Max and Min on the
    /// item's line (the XY graph's list under its plot).
    void paintList(QPainter& painter, const QPointF& topLeft, bool compact) const;
    void paintComment(QPainter& painter, const QRectF& area) const;
    void paintCircle(QPainter& painter, const QRectF& area) const;
    void paintXY(QPainter& painter, const QRectF& area) const;

    const PGraphSession* m_session;
    PGraphPalette m_palette;
};

} // namespace lorvane
