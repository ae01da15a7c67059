// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// A closed interval of one axis, in the axis's own unit (milliseconds of a capture, wall-clock
/// milliseconds of a trend, percent ...).
struct AxisRange
{
    double min = 0;
    double max = 0;

    double span() const { return max - min; }
    double centre() const { return min + span() / 2; }
    /// `value` of this range at the same share of `to` (two axes over one plot); the value
    /// itself when either range is empty.
    double mappedTo(double value, const AxisRange& to) const
    {
        if (!(span() > 0) || !(to.span() > 0))
            return value;
        return to.min + (value - min) / span() * to.span();
    }
    bool operator==(const AxisRange&) const = default;
};

/// The visible part of a chart: one range per axis.
struct Viewport
{
    AxisRange x;
    AxisRange y;

    bool operator==(const Viewport&) const = default;
};

} // namespace lorvane
