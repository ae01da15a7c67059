// SPDX-License-Identifier: GPL-3.0-or-later
#include "PointHit.h"

#include <cmath>

namespace lorvane {

std::optional<PointHit> PointHit::nearest(const QList<QList<QPointF>>& series, const QPointF& at,
                                          double xPixels, double yPixels, double radius)
{
    std::optional<PointHit> best;
    for (int s = 0; s < series.size(); ++s) {
        const QList<QPointF>& points = series[s];
        for (int i = 0; i < points.size(); ++i) {
            const double pixels =
                std::hypot((points[i].x() - at.x()) * xPixels, (points[i].y() - at.y()) * yPixels);
            // NaN distances fail both comparisons and are never chosen.
            if (pixels <= radius && (!best || pixels < best->pixels))
                best = PointHit{s, i, points[i], pixels};
        }
    }
    return best;
}

} // namespace lorvane
