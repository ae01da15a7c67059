// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>
#include <cmath>
#include <limits>

namespace lorvane {

/// The axis a set scales on.
enum class TrendAxis
{
    Left,
    Right,
};

/// One plotted data point of one meter over time. The samples are two columns of equal length
/// rather than an array of pairs: the level-of-detail series draws from the arrays as they are
/// (shared, not copied), and sets of one meter that were stamped at the same instants share
/// one time column, which keeps a year of one-minute values near 8 bytes a sample.
struct GraphSet
{
    qint32 dataId = 0;
    /// 0 for the first meter of the selection, 1 for the second.
    int meter = 0;
    QString name;
    TrendAxis axis = TrendAxis::Left;
    /// 0xRRGGBB.
    quint32 colour = 0;
    /// Meter wall-clock milliseconds from 1970-01-01 00:00 (no zone), ascending.
    QVector<double> times;
    QVector<double> values;
    /// Over the values that are numbers; NaN for a set without one.
    double minimum = std::numeric_limits<double>::quiet_NaN();
    double maximum = std::numeric_limits<double>::quiet_NaN();
    /// The lowest value that is not zero; NaN when every value is zero.
    double smallestNonZero = std::numeric_limits<double>::quiet_NaN();

    int size() const { return static_cast<int>(times.size()); }
    /// Computes minimum, maximum and smallestNonZero from the values.
    void summarise();
};

} // namespace lorvane
