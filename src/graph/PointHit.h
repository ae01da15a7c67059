// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointF>
#include <optional>

namespace lorvane {

/// The point of any series nearest to the pointer, measured in pixels on the screen: what the
/// hover read-out of a chart shows.
struct PointHit
{
    int series = -1;
    int index = -1;
    QPointF point;
    double pixels = 0;

    /// The nearest point of `series` (points in chart values) to `at` (chart values) within
    /// `radius` pixels, when one x unit is `xPixels` and one y unit `yPixels` pixels wide. NaN
    /// points are skipped; on a tie the earlier series and point win.
    static std::optional<PointHit> nearest(const QList<QList<QPointF>>& series, const QPointF& at,
                                           double xPixels, double yPixels, double radius);
};

} // namespace lorvane
