// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace lorvane {

/// What one power graph shows: the chart kind, the span of one view in days, where the view
/// starts, the value scale and the drawing choices of the window.
struct PGraphView
{
    enum class Kind
    {
        Circular = 0, ///< "Circular Graph": one view is one revolution of the dial
        XY = 1,       ///< "XY Graph": one view is the X span
    };

    /// The longest view in days: the span in seconds must stay a 32-bit count.
    static constexpr double maxDaysView = 24855;
    static constexpr qint64 msPerDay = 86400000;

    Kind kind = Kind::Circular;
    double numDaysView = 1;
    /// The view's first moment, milliseconds of meter time (see PGraphRecord).
    qint64 start = 0;
    double maxY = 130;
    double minY = 0;
    bool moveBySample = false;
    bool useSymbols = false;
    bool colorPrintout = false;
    /// The comment block printed with each chart: "Line 1" and "Line 2".
    std::array<QString, 2> comment;

    /// The length of one view in milliseconds.
    qint64 spanMs() const { return qint64(numDaysView * double(msPerDay)); }
    /// The view's last moment (inclusive).
    qint64 end() const { return start + spanMs(); }
    /// Whether the value scale has any extent (`MaxY` equal to `MinY` leaves no scale).
    bool hasScale() const { return maxY != minY; }
};

} // namespace lorvane
