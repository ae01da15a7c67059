// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace lorvane {

/// The date and time formats the program shows stamps in, read once from a locale, and the
/// fixed forms that statements and reports use. Formats are in Qt's date-time syntax
/// (`d`, `M`, `yy`, `h`, `mm`, `ss`, `AP`, quoted literals).
///
/// The locale's own time format may name a time zone; a meter's stamps carry none, so that
/// part is dropped. The "AM/PM" forms render the marker as "AM" or "PM" whatever the locale
/// calls it, so a report reads the same on every machine.
class DateTimeText
{
public:
    /// Reads the short date format and the long time format of `locale` (the time zone part
    /// dropped, NUL characters and blanks trimmed).
    explicit DateTimeText(const QLocale& locale);

    const QLocale& locale() const { return m_locale; }
    const QString& shortDateFormat() const { return m_shortDate; }
    /// The locale's time format with seconds and, in a 12-hour locale, its AM/PM marker.
    const QString& timeFormat() const { return m_time; }
    /// True when the time format counts hours to 12 and shows a marker.
    bool isTwelveHour() const { return m_twelveHour; }
    /// " AMPM" in a 12-hour locale, empty otherwise.
    QString amPmSuffix() const;
    /// The time format without its AM/PM marker.
    const QString& clockFormat() const { return m_clock; }
    /// The clock format cut before the seconds (and the separator before them): hours and
    /// minutes only. A format without seconds stays whole.
    const QString& minutesFormat() const { return m_minutes; }
    /// Short date, a blank, time format.
    QString dateTimeFormat() const { return m_shortDate + u' ' + m_time; }
    /// Short date, a blank, the time up to the minutes.
    QString dateTimeMinutesFormat() const { return m_shortDate + u' ' + m_minutes; }
    /// The time format with the AM/PM marker written "AM/PM"; equal to `timeFormat` in a
    /// 24-hour locale.
    const QString& statementTimeFormat() const { return m_statementTime; }
    /// Short date, a blank, the statement time format.
    QString statementDateTimeFormat() const { return m_shortDate + u' ' + m_statementTime; }

    /// A clock time in `dateTimeFormat`, in the locale; empty for an invalid time.
    QString dateTimeText(const QDateTime& clock) const;
    /// A clock time in `statementDateTimeFormat`: the date in the locale, the time with the
    /// marker "AM" or "PM" (and the C locale's digits); empty for an invalid time.
    QString statementText(const QDateTime& clock) const;

private:
    QLocale m_locale;
    QString m_shortDate;
    QString m_time;
    QString m_clock;
    QString m_minutes;
    QString m_statementTime;
    bool m_twelveHour = false;
};

} // namespace lorvane
