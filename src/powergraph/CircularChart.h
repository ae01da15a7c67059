// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <optional>

namespace lorvane {

struct PGraphView;

/// The geometry of the circular chart. Time runs once round the dial per view: the view's
/// start stands at the top and time goes clockwise; a value's distance from the centre is its
/// share of the value scale, clipped to the dial. Screen coordinates have y growing downward.
class CircularChart
{
public:
    /// The factor that turns degrees into radians, as the chart has always used it.
    static constexpr double radiansPerDegree = 0.0174532924;
    /// Three quarters of a turn in radians: turns a tick's angle so that 0 stands at the top.
    static constexpr double threeQuarterTurn = 4.71238898;
    /// Twips per pixel of a 96 dpi screen: the tick rule is given in twips.
    static constexpr double twipsPerPixel = 15;
    /// Ticks begin this far outside the dial (pixels); they are `tickLength` long.
    static constexpr double tickGap = 3;
    static constexpr double tickLength = 8;

    /// Degrees of time `time` on a view of `numDaysView` days that starts at `start`
    /// (milliseconds): (t - start) x 360 / `numDaysView` per day. A record exactly one view
    /// after the start gets 360, the start angle once round.
    static double recordAngle(qint64 time, qint64 start, double numDaysView);
    /// The plotted angle of `degrees`: -(a + 90) degrees in radians.
    static double plotAngle(double degrees);
    /// The offset from the centre of a point at plotted angle `radians` and distance
    /// `radius`: top at angle 0 of the record, clockwise.
    static QPointF offset(double radians, double radius);
    /// The point of a record on a dial of `radius` around `centre`; nothing without a scale.
    static std::optional<QPointF> recordPoint(const PGraphView& view, qint64 time, double value,
                                              const QPointF& centre, double radius);
    /// The full circle point by point, at every whole degree from 0 to 359.
    static QList<QPointF> circle(const QPointF& centre, double radius);

    /// Degrees between hour or date marks on a dial of `radiusPixels`: 12000 / r x 15 with r
    /// in twips when r is above 2375 twips, else 90.
    static double tickStep(double radiusPixels);
    /// The angles (degrees from the top, clockwise) of the marks round the dial.
    static QList<double> tickAngles(double radiusPixels);
    /// The plotted angle of a mark at `degrees`: -a in radians plus three quarters of a turn.
    static double tickAngle(double degrees);
    /// The text of the mark at `degrees` of `view`: "hh:mm:ss" when one view is under a day,
    /// else "mm/dd".
    static QString tickLabel(const PGraphView& view, double degrees);

    /// The dial in `area` (pixels): the largest circle that leaves `outerMargin` round it for
    /// the marks' text.
    struct Dial
    {
        QPointF centre;
        double radius = 0;
    };
    static Dial dial(const QRectF& area, double outerMargin);
};

} // namespace lorvane
