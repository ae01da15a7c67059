// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "relaylogic/RelayLogicTree.h"

#include <QColor>
#include <QRectF>

class QPainter;

namespace lorvane {

/// Draws a relay logic tree with the painter: the headings from the trigger (start) to the
/// relay trip (end), each node where the layout placed it (inputs as marks with their names,
/// gates as their symbols, set paths, delays, the relay with its final state), the signals
/// between them, and a legend. Active nodes and signals are drawn in the active colour, others
/// in the inactive one, unknown ones with "?". The window, its printed page, the picture files
/// of the window and of the command line all draw through here, so they show the same tree.
class RelayLogicPicture
{
public:
    static QColor activeColour() { return QColor(200, 40, 40); }
    static QColor inactiveColour() { return QColor(40, 110, 60); }
    static QColor unknownColour() { return QColor(150, 150, 150); }

    /// Draws `tree` into `area` (white behind it is the caller's).
    static void paint(QPainter& painter, const QRectF& area, const RelayLogicTree& tree);
};

} // namespace lorvane
