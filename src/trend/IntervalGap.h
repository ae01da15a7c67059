// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

namespace lorvane {

/// "Interval Gap": from which spacing two successive samples are drawn unjoined, so that a
/// meter switched off for a week does not show a straight line across that week. The line is
/// broken by a NaN sample between the two, which the level-of-detail series treats as a gap.
class IntervalGap
{
public:
    /// Spacings of one second or less never break a line.
    static constexpr double shortestGapMs = 1000.0;

    /// Whether `gapDays` breaks lines at all (above one second).
    static bool breaks(double gapDays);
    /// `times` and `values` with a NaN sample inserted midway in every spacing above
    /// `gapDays`; the columns come back shared, not copied, when nothing is broken.
    static void apply(const QVector<double>& times, const QVector<double>& values, double gapDays,
                      QVector<double>& outTimes, QVector<double>& outValues);
};

} // namespace lorvane
