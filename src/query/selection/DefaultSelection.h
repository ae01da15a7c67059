// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <array>

namespace lorvane {

/// The selection of the last run, kept in section `DefaultSetting` of the settings file: the
/// two meters, the selected data points and the time range rule. Read once at start; the
/// selection window writes it back when its selection changes.
struct DefaultSelection
{
    /// Rows of the data point table, one key `Data_{row}` each.
    static constexpr int dataPointRows = 128;
    /// `timeOption` when the file names none (the first run) or names an unknown one.
    static constexpr int noTimeOption = -1;
    /// Format of `StartDateTime` and `EndDateTime` in the file: month/day/year, 24-hour clock.
    static constexpr const char* dateTimeFormat = "MM/dd/yyyy HH:mm:ss";

    QString device1;
    QString device2;
    QString device1Path;
    QString device2Path;
    /// Data id of each row; 0 for an unused row.
    std::array<qint32, dataPointRows> dataIds{};
    /// 0 Between, 1 hours, 2 days, 3 weeks, 4 months, 5 years, or `noTimeOption`.
    int timeOption = noTimeOption;
    /// The N of "the previous N units"; 0 when the file holds none or no number.
    int timeInterval = 0;
    /// Bounds of a Between range, or the last computed bounds; invalid when the file holds none
    /// or text that is no date.
    QDateTime startDateTime;
    QDateTime endDateTime;

    /// Upper-case names of the time options as the file holds them, by option number.
    static const std::array<QString, 6>& timeOptionNames();

    /// Reads section `DefaultSetting` of `settingsFile`. A missing file or key gives the empty
    /// value of its field (0 for a data point or interval, no option, an invalid date); the
    /// time option is matched on its upper-case form; a date is read as month/day/year with an
    /// optional time of hours, minutes and seconds.
    void read(const QString& settingsFile);

    /// Writes the device keys. Each writer returns false at the first key that cannot be
    /// written, the keys before it written.
    bool writeDevices(const QString& settingsFile) const;
    /// Writes `Data_1` to `Data_128`, 0 for an unused row.
    bool writeDataPoints(const QString& settingsFile) const;
    /// Writes `TimeOption` (empty for no option), `TimeInterval` and both dates (empty when
    /// invalid).
    bool writeTimeRange(const QString& settingsFile) const;
    /// All three of the above.
    bool write(const QString& settingsFile) const;

    /// A date of the file's form, or an invalid date when `text` is none.
    static QDateTime parseDateTime(const QString& text);
};

} // namespace lorvane
