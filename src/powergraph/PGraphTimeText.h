// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace lorvane {

struct PGraphView;

/// The time texts of the power graphs, made from meter time (milliseconds, no zone) in fixed
/// English forms, whatever the PC's zone and language.
class PGraphTimeText
{
public:
    /// "hh:mm:ss" on a 24-hour clock.
    static QString clock(qint64 time);
    /// "mm/dd".
    static QString monthDay(qint64 time);
    /// "mmm dd, yyyy".
    static QString date(qint64 time);
    /// The header of a chart: the view's first and last day, "mmm dd, yyyy to mmm dd, yyyy".
    static QString period(const PGraphView& view);
    /// "mm/dd/yyyy hh:mm:ss", the form of the "Starting Date/Time to View" field.
    static QString entry(qint64 time);
    /// The time of an entry in that form (or "yyyy-mm-dd hh:mm:ss"); nothing when it is none.
    static std::optional<qint64> parseEntry(const QString& text);
};

} // namespace lorvane
