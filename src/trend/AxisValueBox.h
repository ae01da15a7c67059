// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace lorvane {

/// The four boxes that set the low and high of the left and right axes by hand. They take a
/// number strictly between -1e9 and 1e9; anything else is refused and the box keeps its value.
class AxisValueBox
{
public:
    static constexpr double limit = 1e9;

    /// The number of `text` (blanks around it allowed) when the box accepts it.
    static std::optional<double> parse(const QString& text);
    static bool accepts(double value);
};

} // namespace lorvane
