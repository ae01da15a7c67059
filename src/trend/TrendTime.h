// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QStringView>
#include <optional>

namespace lorvane {

/// The x of a trend: meter wall-clock milliseconds from 1970-01-01 00:00 with no zone, the
/// unit the graph kit's clock ticks read. A trend reads one stamp for every instant of the
/// range, so the stored text is read by hand here rather than through a date parser.
class TrendTime
{
public:
    static constexpr double msPerSecond = 1000.0;
    static constexpr double msPerDay = 86400000.0;

    /// The milliseconds of a stored text `YYYY-MM-DD HH:MM:SS`; nothing when the text has
    /// another form or names no real day or time of day.
    static std::optional<double> fromStoredText(QStringView text);
    /// The milliseconds of a wall-clock reading (a WallClock reading, tagged UTC and never
    /// converted).
    static double of(const QDateTime& clock);
    /// The wall-clock reading of `ms`, whole milliseconds.
    static QDateTime clock(double ms);
};

} // namespace lorvane
