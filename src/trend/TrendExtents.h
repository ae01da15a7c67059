// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSet.h"
#include "graph/AxisRange.h"

#include <QList>
#include <optional>

namespace lorvane {

/// The three ways to fit an axis to its data.
enum class ExtentsRule
{
    Default,     ///< data minimum to data maximum
    NonZero,     ///< smallest non-zero value to data maximum
    Intelligent, ///< the intelligent low to the intelligent high (IntelligentRange)
};

/// What one axis knows of its sets' values. NaN where the sets give nothing.
struct AxisData
{
    double minimum = std::numeric_limits<double>::quiet_NaN();
    double maximum = std::numeric_limits<double>::quiet_NaN();
    double smallestNonZero = std::numeric_limits<double>::quiet_NaN();
    double intelligentLow = std::numeric_limits<double>::quiet_NaN();
    double intelligentHigh = std::numeric_limits<double>::quiet_NaN();

    bool empty() const { return std::isnan(minimum); }
};

/// The y extents of a trend axis: a low bound L and a high bound H chosen by the rule, then
/// a margin of a tenth of H - L on each side. Equal values give L = H: the axis collapses to
/// the value, as an engineer reading a constant expects to see exactly that value.
class TrendExtents
{
public:
    /// The data of the sets on `axis`.
    static AxisData of(const QList<GraphSet>& sets, TrendAxis axis);
    /// The x span of all sets (first to last sample); nothing without samples.
    static std::optional<AxisRange> timeSpan(const QList<GraphSet>& sets);
    /// The extents by `rule`. `storedNonZero` is the window's smallest non-zero value, kept
    /// from an earlier load for data that has none (all zeros). Nothing when the axis has no
    /// data or the bounds would be inverted.
    static std::optional<AxisRange> apply(ExtentsRule rule, const AxisData& data,
                                          double storedNonZero);
    /// [L - 0.1 (H - L), H + 0.1 (H - L)].
    static AxisRange withMargin(double low, double high);
};

} // namespace lorvane
