// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane {

/// The value texts and scale steps of the power graphs. Values at or above 1000 are shown in
/// thousands marked "k", at or above 1000000 in millions marked "M".
class PGraphScale
{
public:
    /// A value divided for showing and the mark of its divisor ("", "k", "M").
    struct Scaled
    {
        double value = 0;
        QString mark;
    };
    static Scaled scaled(double value);
    /// "#0.000" of the scaled value with its mark: the item list's "Max", "Min" and the
    /// "Graph Max is" / "Graph Min is" read-out.
    static QString valueText(double value);
    /// " 0.000" of the scaled value with its mark: the texts of the scale marks.
    static QString markText(double value);
    /// The share of the scale of `value` from `minY` to `maxY`, clipped to 0 to 1: the
    /// distance from the dial's centre, the height in the XY plot. -1 without a scale.
    static double share(double value, double minY, double maxY);
    /// The values of the scale's steps from `minY` to `maxY` (either order) at round steps,
    /// ends included; none when the scale has no extent.
    static QList<double> steps(double minY, double maxY, int maxSteps = 5);
};

} // namespace lorvane
