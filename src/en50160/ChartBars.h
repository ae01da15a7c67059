// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

class PqTestStatistics;

/// The bar heights of the EN 50160 histograms: each count as a percentage of its total, N1
/// for the frequency, N3 for the flicker and N2 for every other chart, in single precision
/// as the report stores and prints them.
class ChartBars
{
public:
    /// The histograms of a report, one picture each.
    enum class Chart
    {
        FRE,  ///< frequency bins 0..9, one series
        LSV,  ///< long slow voltage bins 0..4, phases A, B, C
        FVF,  ///< fast voltage bins 0..5, phases A, B, C
        FLI,  ///< flicker "< 1", ">= 1", phases A, B, C
        SVU,  ///< unbalance "< 2%", "< 3%", ">= 3%", one series
        THD,  ///< THD exceed count, phases A, B, C
        HARF, ///< harmonic orders 2 to 13, phases A, B, C
        HAR,  ///< harmonic orders 14 to 25, phases A, B, C
    };

    /// `count` / `total` x 100; nothing when the total is 0, which fails the report.
    static std::optional<float> percent(double count, double total);
    /// The bars of a chart, one list per series; nothing when its total is 0.
    static std::optional<QList<QList<float>>> bars(Chart chart, const PqTestStatistics& s);
    /// The text over a bar: the number's text cut one digit behind its point; a number so
    /// small that its text needs a negative exponent reads "< 0.1".
    static QString barText(float value);
};

} // namespace lorvane
