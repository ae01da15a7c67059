// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// How a meter shows one of its energy values: the `Units` and `Decimals` of a row of its
/// `ScaledFormats` table (per `ProfileIndex` and `FormatID`).
///
/// `Units` names the power of a thousand of the register's unit, and so its prefix:
/// 0 none, 1 "k", 2 "M", 3 "G"; any other value is shown without a prefix. The value itself is
/// never rescaled: the meter logs it in the unit that `Units` names.
class ScaledEnergyFormat
{
public:
    /// Most decimals a format shows; a row asking for more shows this many.
    static constexpr int maximumDecimals = 7;

    ScaledEnergyFormat() = default;
    /// `decimals` below 0 count as 0, above `maximumDecimals` as `maximumDecimals`.
    ScaledEnergyFormat(int units, int decimals);

    int units() const { return m_units; }
    int decimals() const { return m_decimals; }

    /// The number format: "#,##0" with `decimals` zeros after a point ("#,##0.00").
    QString pattern() const;
    /// The unit prefix that `units` names ("", "k", "M", "G").
    QString unitPrefix() const;

private:
    int m_units = 0;
    int m_decimals = 0;
};

} // namespace lorvane
