// SPDX-License-Identifier: GPL-3.0-or-later
#include "TickLabels.h"

#include <QDateTime>

namespace lorvane {

namespace {

QString clockText(double ms, const QString& format)
{
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(ms), Qt::UTC).toString(format);
}

} // namespace

QString TickLabels::tick(const AxisTicks& ticks, double value, const AxisRange& range)
{
    using Unit = AxisTicks::Unit;
    // Ticks of a range across midnight carry the date, so no two labels read the same.
    const bool days = clockText(range.min, QStringLiteral("yyyyMMdd")) !=
                      clockText(range.max, QStringLiteral("yyyyMMdd"));
    const QString dayPrefix = days ? QStringLiteral("MM-dd ") : QString();
    switch (ticks.unit) {
    case Unit::Number:
        return QString::number(value, 'f', ticks.decimals);
    case Unit::Millisecond:
        return clockText(value, dayPrefix + QStringLiteral("hh:mm:ss.zzz"));
    case Unit::Second:
        return clockText(value, dayPrefix + QStringLiteral("hh:mm:ss"));
    case Unit::Minute:
    case Unit::Hour:
        return clockText(value, dayPrefix + QStringLiteral("hh:mm"));
    case Unit::Day:
        return clockText(value, QStringLiteral("yyyy-MM-dd"));
    case Unit::Month:
        return clockText(value, QStringLiteral("yyyy-MM"));
    case Unit::Year:
        return clockText(value, QStringLiteral("yyyy"));
    }
    return {};
}

QString TickLabels::value(double value, bool wallClock)
{
    return wallClock ? clockText(value, QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"))
                     : QString::number(value, 'g', 6);
}

} // namespace lorvane
