// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

namespace lorvane {

/// Meter time is a wall-clock reading with no zone: the meter stamps its records in its own
/// local time and marks the daylight saving mode itself. Every meter time and every bound
/// built from one is held in a QDateTime tagged UTC, so that this PC's zone never shifts a
/// reading, never drops one that falls in its spring-forward gap, and hour and day steps
/// (`addSecs`, `addDays`) are plain wall-clock arithmetic.
class WallClock
{
public:
    /// The reading `date` `time`, zone-free.
    static QDateTime at(const QDate& date, const QTime& time);
    /// The same date and time reading as `any`, zone-free (no conversion between zones: a
    /// reading of 02:30 stays 02:30 whatever zone tag `any` had). Invalid stays invalid.
    static QDateTime of(const QDateTime& any);
    /// The reading of this PC's clock now, as its user sees it, zone-free.
    static QDateTime now();
};

} // namespace lorvane
