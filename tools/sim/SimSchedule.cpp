// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimSchedule.h"

#include "SimClock.h"

namespace lorvane::sim {

SimSchedule::SimSchedule(qint64 startSecond, qint64 endSecond)
    : m_start(startSecond), m_end(endSecond)
{
}

int SimSchedule::days() const
{
    return static_cast<int>((m_end - m_start) / SimClock::secondsPerDay);
}

qint64 SimSchedule::outageStart() const
{
    return m_start + SimClock::secondsPerDay + 10 * SimClock::secondsPerHour;
}

qint64 SimSchedule::outageEnd() const
{
    return outageStart() + 3 * SimClock::secondsPerHour;
}

bool SimSchedule::poweredDown(qint64 second) const
{
    return hasOutage() && second >= outageStart() && second < outageEnd();
}

qint64 SimSchedule::testStart() const
{
    return m_end - SimClock::secondsPerDay + 14 * SimClock::secondsPerHour;
}

qint64 SimSchedule::testEnd() const
{
    return testStart() + 30 * 60;
}

bool SimSchedule::inTestMode(qint64 second) const
{
    return second >= testStart() && second < testEnd();
}

bool SimSchedule::capacitorsOn(qint64 second)
{
    const int hour = SimClock::hour(second);
    return hour >= 1 && hour < 4;
}

} // namespace lorvane::sim
