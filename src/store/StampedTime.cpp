// SPDX-License-Identifier: GPL-3.0-or-later
#include "StampedTime.h"

#include "MeterMessages.h"
#include "WallClock.h"
#include "platform/Fault.h"

#include <QRegularExpression>
#include <cmath>
#include <tuple>

namespace lorvane {

namespace {

QDateTime wholeSeconds(const QDateTime& clock)
{
    if (!clock.isValid())
        return {};
    const QTime time = clock.time();
    return WallClock::at(clock.date(), QTime(time.hour(), time.minute(), time.second()));
}

[[noreturn]] void badText(const QString& text, const char* why)
{
    // A stamp comes from a meter or scratch file: one that does not read is a damaged file.
    throw Fault(Fault::Kind::Damaged, MeterMessages::damagedStamp(text, QLatin1String(why)),
                QStringLiteral("StampedTime"), QString());
}

} // namespace

StampedTime::StampedTime(const QDateTime& clock, double ms, int mode)
    : m_clock(wholeSeconds(clock)), m_ms(ms), m_mode(mode)
{
}

QDateTime StampedTime::parseClock(const QString& text)
{
    // Strict on purpose: a lenient reader would turn "2024-3-1" or a trailing zone into some
    // other instant without a word.
    static const QRegularExpression form(
        QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2}) (\\d{2}):(\\d{2}):(\\d{2})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        badText(text, "the text does not have that form");
    const QDate date(match.captured(1).toInt(), match.captured(2).toInt(),
                     match.captured(3).toInt());
    if (!date.isValid())
        badText(text, "there is no such day");
    const QTime time(match.captured(4).toInt(), match.captured(5).toInt(),
                     match.captured(6).toInt());
    if (!time.isValid())
        badText(text, "there is no such time of day");
    return WallClock::at(date, time);
}

StampedTime StampedTime::fromStoredText(const QString& text, double ms, int mode)
{
    return StampedTime(parseClock(text), ms, mode);
}

QString StampedTime::storedText(const QDateTime& clock)
{
    if (!clock.isValid())
        return {};
    return clock.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString StampedTime::fractionText(double ms, Fraction scale)
{
    const bool tenths = scale == Fraction::TenthMilliseconds;
    const qint64 units = std::llround(tenths ? ms * 10.0 : ms);
    const QString digits =
        QString::number(units < 0 ? -units : units).rightJustified(tenths ? 4 : 3, u'0');
    return units < 0 ? QStringLiteral("-") + digits : digits;
}

QString StampedTime::text(const QString& format, const QLocale& locale, Fraction scale) const
{
    return locale.toString(m_clock, format) + u'.' + fractionText(scale);
}

bool StampedTime::operator==(const StampedTime& other) const
{
    return m_clock == other.m_clock && m_ms == other.m_ms && m_mode == other.m_mode;
}

bool StampedTime::operator<(const StampedTime& other) const
{
    return std::tie(m_clock, m_ms, m_mode) < std::tie(other.m_clock, other.m_ms, other.m_mode);
}

} // namespace lorvane
