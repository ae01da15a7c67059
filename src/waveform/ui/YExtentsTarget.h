// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// A graph whose y bounds the user may set by hand: the strips and the bar graphs alike, so
/// that "&Edit Graph" works on whichever graph a view shows.
class YExtentsTarget
{
public:
    virtual ~YExtentsTarget() = default;

    /// Fixed y bounds from now on.
    virtual void setManualY(double bottom, double top) = 0;
    virtual double yMin() const = 0;
    virtual double yMax() const = 0;
};

} // namespace lorvane
