// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The two-decimal texts of waveform statistics: below 1000 the plain value, then the value
/// in thousands, millions or billions followed by "k", "M" or "G".
class EngineeringNumberText
{
public:
    /// "0.00" form: 0.5 -> "0.50", 1500 -> "1.50k", 2.5e6 -> "2.50M". Not finite -> "N/A".
    static QString withLeadingZero(double value);
    /// ".00" form, for THD and K-factor: 0.5 -> ".50", 0 -> ".00", 1500 -> "1.50k".
    static QString withoutLeadingZero(double value);

private:
    static QString format(double value, bool leadingZero);
};

} // namespace lorvane
