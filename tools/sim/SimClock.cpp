// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimClock.h"

#include <QDate>

namespace lorvane::sim {

qint64 SimClock::dayStart(qint64 second)
{
    const qint64 day =
        second >= 0 ? second / secondsPerDay : (second - secondsPerDay + 1) / secondsPerDay;
    return day * secondsPerDay;
}

int SimClock::hour(qint64 second)
{
    return static_cast<int>((second - dayStart(second)) / secondsPerHour);
}

QString SimClock::text(qint64 second)
{
    const qint64 midnight = dayStart(second);
    const QDate date = QDate(1970, 1, 1).addDays(midnight / secondsPerDay);
    const qint64 inDay = second - midnight;
    // Hand formatting: this runs once per logged instant, millions of times for a large file.
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", date.year(), date.month(),
                  date.day(), static_cast<int>(inDay / 3600), static_cast<int>(inDay / 60 % 60),
                  static_cast<int>(inDay % 60));
    return QString::fromLatin1(buffer);
}

} // namespace lorvane::sim
