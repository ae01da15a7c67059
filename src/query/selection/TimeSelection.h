// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QPair>
#include <QString>

namespace lorvane {

class MeterTable;
class TopQueryBuffer;
struct DefaultSelection;

/// The one time range all views use: a rule (between two bounds, or the previous N hours,
/// days, weeks, months or years) that is turned into dates each time a view runs, so a rule
/// of the previous seven days moves with the clock.
class TimeSelection
{
public:
    enum Option : int
    {
        Undefined = -1,
        Between = 0,
        Hours = 1,
        Days = 2,
        Weeks = 3,
        Months = 4,
        Years = 5,
    };
    static constexpr int smallestInterval = 1;
    static constexpr int largestInterval = 365;

    struct Bounds
    {
        QDateTime start;
        QDateTime end;
    };

    int option() const { return m_option; }
    int interval() const { return m_interval; }
    /// "Between", "Hour", "Day", "Week", "Month" or "Year"; empty while undefined.
    QString optionName() const;
    /// The stored bounds: those of Between, or the last computed ones.
    const QDateTime& startTime() const { return m_start; }
    const QDateTime& endTime() const { return m_end; }

    /// A range is defined: Between with both bounds, or a "previous" option with N in 1..365.
    bool defined() const;
    /// A view reads 59 seconds past the end: every defined option but Between, whose end is
    /// a whole minute.
    bool roundsSeconds() const { return defined() && m_option != Between; }

    /// Accepts a "previous N units" option (1 to 5) with N as typed. Returns "Invalid time range
    /// value." for a text that is no number in 1..365 (the selection stays as it was), else
    /// clears the `Top query buffer` and returns empty.
    QString acceptPrevious(int option, const QString& intervalText, TopQueryBuffer& buffer);
    /// Accepts Between; an end before the start swaps the two. Clears the `Top query buffer`.
    void acceptBetween(const QDateTime& start, const QDateTime& end, TopQueryBuffer& buffer);

    /// The rule as dates at `now` (`DisplayTopFrmStartEndTime`), stored as the last computed
    /// bounds: hours end at the present minute; days to years end today at 23:59:00 and start
    /// at midnight N units before tomorrow. Between gives its bounds. Undefined gives invalid
    /// dates.
    Bounds bounds(const QDateTime& now);
    /// The two label texts of the main window for `bounds`, dates in `format` (the settings'
    /// date format, Qt form): "Start Time {start}" and "previous {N} {unit}, {end}"; the two
    /// bounds alone with "to" before the end for Between; both empty while undefined.
    QPair<QString, QString> labels(const Bounds& bounds, const QString& format) const;

    /// Takes the rule from the stored settings (`TimeOption` ...); an invalid stored date
    /// falls back to `now`.
    void read(const DefaultSelection& stored, const QDateTime& now);
    /// Writes the rule into `stored` for the settings file.
    void write(DefaultSelection& stored) const;

    /// The data's own limits: the first and last `Date/Time` of `AllHistoricalLogs` of every
    /// used meter (of `AllWaveformLogs` when that log is empty), from 0:00:00 to 23:59:59.
    /// Invalid when no used meter opens or holds rows.
    static Bounds dataBounds(const MeterTable& meters);

private:
    int m_option = Undefined;
    int m_interval = 0;
    QDateTime m_start;
    QDateTime m_end;
};

} // namespace lorvane
