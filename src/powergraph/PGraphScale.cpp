// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphScale.h"

#include "graph/NiceTicks.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

PGraphScale::Scaled PGraphScale::scaled(double value)
{
    const double size = std::abs(value);
    if (size >= 1000000)
        return {value / 1000000, QStringLiteral("M")};
    if (size >= 1000)
        return {value / 1000, QStringLiteral("k")};
    return {value, {}};
}

QString PGraphScale::valueText(double value)
{
    const Scaled s = scaled(value);
    return QString::number(s.value, 'f', 3) + s.mark;
}

QString PGraphScale::markText(double value)
{
    return QLatin1Char(' ') + valueText(value);
}

double PGraphScale::share(double value, double minY, double maxY)
{
    if (maxY == minY)
        return -1;
    return std::clamp((value - minY) / (maxY - minY), 0.0, 1.0);
}

QList<double> PGraphScale::steps(double minY, double maxY, int maxSteps)
{
    if (minY == maxY || !std::isfinite(minY) || !std::isfinite(maxY))
        return {};
    const AxisRange range{std::min(minY, maxY), std::max(minY, maxY)};
    QList<double> out;
    out << range.min;
    for (double v : NiceTicks::linear(range, maxSteps).values) {
        // Ticks closer than a tenth of a step to an end would print over its text.
        const double near = range.span() / maxSteps / 10;
        if (v - range.min > near && range.max - v > near)
            out << v;
    }
    out << range.max;
    return out;
}

} // namespace lorvane
