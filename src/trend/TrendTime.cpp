// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendTime.h"

#include "store/WallClock.h"

#include <QTimeZone>
#include <cmath>

namespace lorvane {

namespace {

/// Days from 1970-01-01 of a proleptic Gregorian date (valid for every year a meter writes).
qint64 daysFromCivil(int y, int m, int d)
{
    y -= m <= 2 ? 1 : 0;
    const int era = (y >= 0 ? y : y - 399) / 400;
    const int yoe = y - era * 400;
    const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return qint64(era) * 146097 + doe - 719468;
}

int daysInMonth(int y, int m)
{
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    return m == 2 && leap ? 29 : days[m - 1];
}

} // namespace

std::optional<double> TrendTime::fromStoredText(QStringView text)
{
    if (text.size() != 19)
        return std::nullopt;
    static constexpr int digitsAt[] = {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18};
    for (int i : digitsAt)
        if (text[i] < u'0' || text[i] > u'9')
            return std::nullopt;
    if (text[4] != u'-' || text[7] != u'-' || text[10] != u' ' || text[13] != u':' ||
        text[16] != u':')
        return std::nullopt;
    auto field = [&text](int at, int length) {
        int value = 0;
        for (int i = at; i < at + length; ++i)
            value = value * 10 + (text[i].unicode() - u'0');
        return value;
    };
    const int year = field(0, 4), month = field(5, 2), day = field(8, 2);
    const int hour = field(11, 2), minute = field(14, 2), second = field(17, 2);
    if (month < 1 || month > 12 || day < 1 || day > daysInMonth(year, month) || hour > 23 ||
        minute > 59 || second > 59)
        return std::nullopt;
    const qint64 seconds =
        daysFromCivil(year, month, day) * 86400 + hour * 3600 + minute * 60 + second;
    return double(seconds) * msPerSecond;
}

double TrendTime::of(const QDateTime& clock)
{
    return double(WallClock::of(clock).toMSecsSinceEpoch());
}

QDateTime TrendTime::clock(double ms)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround(ms), QTimeZone::utc());
}

} // namespace lorvane
