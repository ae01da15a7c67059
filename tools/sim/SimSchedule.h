// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace lorvane::sim {

/// The planned happenings of a simulated period that several logs must agree on: the power
/// outage (a gap in the interval logs, a breaker input change, power events) and the test
/// mode window (test-mode snapshots, test mode events).
class SimSchedule
{
public:
    /// The period [startSecond, endSecond), whole days from midnight.
    SimSchedule(qint64 startSecond, qint64 endSecond);

    qint64 startSecond() const { return m_start; }
    qint64 endSecond() const { return m_end; }
    int days() const;

    /// The outage: day 2, 10:00:00 to 13:00:00, only when the period has two days or more.
    bool hasOutage() const { return days() >= 2; }
    qint64 outageStart() const;
    qint64 outageEnd() const;
    /// Whether the meter was without supply at that second (end exclusive).
    bool poweredDown(qint64 second) const;

    /// Test mode: the last day, 14:00:00 to 14:30:00 (end exclusive).
    qint64 testStart() const;
    qint64 testEnd() const;
    bool inTestMode(qint64 second) const;

    /// A capacitor bank switched on every night from 01:00 to 04:00 makes the supply lead.
    static bool capacitorsOn(qint64 second);

private:
    qint64 m_start;
    qint64 m_end;
};

} // namespace lorvane::sim
