// SPDX-License-Identifier: GPL-3.0-or-later
#include "WallClock.h"

#include <QTimeZone>

namespace lorvane {

QDateTime WallClock::at(const QDate& date, const QTime& time)
{
    return QDateTime(date, time, QTimeZone::utc());
}

QDateTime WallClock::of(const QDateTime& any)
{
    if (!any.isValid())
        return {};
    return at(any.date(), any.time());
}

QDateTime WallClock::now()
{
    return of(QDateTime::currentDateTime());
}

} // namespace lorvane
