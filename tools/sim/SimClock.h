// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

namespace lorvane::sim {

/// The simulator's clock: seconds since the epoch of the meter's local wall clock, carried as
/// UTC, so that no zone or daylight saving rule ever shifts a stamp.
class SimClock
{
public:
    static constexpr qint64 secondsPerDay = 86400;
    static constexpr qint64 secondsPerHour = 3600;

    /// `YYYY-MM-DD HH:MM:SS`, the date text of a meter file (any second, negative included).
    static QString text(qint64 second);
    /// Midnight of the day holding `second`.
    static qint64 dayStart(qint64 second);
    /// Hour of the day 0..23.
    static int hour(qint64 second);
};

} // namespace lorvane::sim
