// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>

namespace lorvane {

/// How the display settings turn into pens and point markers on the waveform graphs.
class WaveDrawStyle
{
public:
    /// A colour as the settings file keeps it (0x00BBGGRR).
    static QColor color(qint32 value);
    /// Pen style and width of an item line type ("Thin Solid", "Dashed" ... "Extra Thick
    /// Solid").
    static Qt::PenStyle penStyle(int lineType);
    static qreal penWidth(int lineType);
    /// Marker size in pixels of a point size (Small, Medium, Large, Micro).
    static qreal pointPixels(int pointSize);
    /// The marker of an item point type ("Plus", "Cross", "Circle", "Solid Circle", "Square",
    /// "Solid Square", "Diamond", "Solid Diamond", "Upward Triangle", "Solid Upward
    /// Triangle", "Downward Triangle", "Solid Downward Triangle", "Dash", "Pixel") drawn in
    /// `color`, `pixels` wide.
    static QImage marker(int pointType, const QColor& color, qreal pixels);
};

} // namespace lorvane
