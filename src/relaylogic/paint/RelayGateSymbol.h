// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RelayGateByte.h"

#include <QPointF>
#include <QRectF>

class QPainter;

namespace lorvane {

/// The drawn symbol of each gate type: AND a flat back and a round front, OR a curved back
/// and a pointed front, XOR an OR with a second curve behind it, Hysteresis a box with a loop;
/// the N types add a ring at the output, and an inverted input a ring on its pin.
class RelayGateSymbol
{
public:
    /// Draws the gate into `box` with the painter's pen and brush.
    static void draw(QPainter& painter, const QRectF& box, const RelayGateByte& gate);
    /// Where input `pin` (0 upper, 1 lower) meets the symbol, and where the output leaves.
    static QPointF pin(const QRectF& box, int pin);
    static QPointF output(const QRectF& box);
    /// The part of the body where the gate's letter stands clear of its strokes.
    static QRectF labelBox(const QRectF& box, const RelayGateByte& gate);
    /// The diameter of an inversion ring of a box.
    static double ring(const QRectF& box);
};

} // namespace lorvane
