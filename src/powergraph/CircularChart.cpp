// SPDX-License-Identifier: GPL-3.0-or-later
#include "CircularChart.h"

#include "PGraphScale.h"
#include "PGraphTimeText.h"
#include "PGraphView.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

double CircularChart::recordAngle(qint64 time, qint64 start, double numDaysView)
{
    const double days = double(time - start) / double(PGraphView::msPerDay);
    return days * (360.0 / numDaysView);
}

double CircularChart::plotAngle(double degrees)
{
    return -(degrees + 90.0) * radiansPerDegree;
}

QPointF CircularChart::offset(double radians, double radius)
{
    // The plotted angle counts the other way round from the screen's: x is mirrored so that
    // a quarter of a view stands at the right, as a clock's hand goes.
    return {-radius * std::cos(radians), radius * std::sin(radians)};
}

std::optional<QPointF> CircularChart::recordPoint(const PGraphView& view, qint64 time, double value,
                                                  const QPointF& centre, double radius)
{
    const double share = PGraphScale::share(value, view.minY, view.maxY);
    if (share < 0)
        return std::nullopt;
    const double angle = plotAngle(recordAngle(time, view.start, view.numDaysView));
    return centre + offset(angle, share * radius);
}

QList<QPointF> CircularChart::circle(const QPointF& centre, double radius)
{
    QList<QPointF> points;
    points.reserve(360);
    for (int a = 0; a < 360; ++a)
        points << centre + offset(double(a) * radiansPerDegree, radius);
    return points;
}

double CircularChart::tickStep(double radiusPixels)
{
    const double twips = radiusPixels * twipsPerPixel;
    return twips > 2375 ? 12000.0 / twips * 15.0 : 90.0;
}

QList<double> CircularChart::tickAngles(double radiusPixels)
{
    const double step = tickStep(radiusPixels);
    QList<double> angles;
    // A step that does not divide the turn leaves no mark closer than half a step to the
    // start, whose mark is the first.
    for (int i = 0; double(i) * step < 360.0 - step / 2; ++i)
        angles << double(i) * step;
    return angles;
}

double CircularChart::tickAngle(double degrees)
{
    return -degrees * radiansPerDegree + threeQuarterTurn;
}

QString CircularChart::tickLabel(const PGraphView& view, double degrees)
{
    const qint64 time = view.start + qint64(std::llround(degrees / 360.0 * double(view.spanMs())));
    return view.numDaysView < 1 ? PGraphTimeText::clock(time) : PGraphTimeText::monthDay(time);
}

CircularChart::Dial CircularChart::dial(const QRectF& area, double outerMargin)
{
    const double radius = std::max(0.0, std::min(area.width(), area.height()) / 2 - outerMargin);
    return {area.center(), radius};
}

} // namespace lorvane
