// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace lorvane {

/// The command a sibling program starts the viewer with: blank-separated fields `{tag}{value}`
/// ("LOGID:", "FRT:", "LRT:", "FRM:", "LRM:", "SS:", "VM:", "CHA:") and a database path, which
/// is what remains once every field was cut out.
struct CommandLine
{
    /// Most data point rows a command may fill.
    static constexpr int mostChannels = 128;

    /// The view to open (see `viewButton`); 0 when none was given.
    int logId = 0;
    /// First and last record time; today and today minus one unless given as 12 digits.
    QDateTime firstRecordTime;
    QDateTime lastRecordTime;
    /// A valid "FRT:" or "LRT:" was given.
    bool timeGiven = false;
    int firstRecordMs = 0;
    int lastRecordMs = 0;
    int ss = 0;
    int vm = 0;
    /// The "CHA:" entries as written, split at commas.
    QStringList channels;
    /// The database path: the rest, quotes blanked and trimmed.
    QString path;
    /// A numeric field did not hold a number.
    bool parseError = false;
    /// The fields as written ("LOGID:2", "FRT:030424000000" ...), in the order they were read.
    QStringList fields;

    /// Parses `text`; `today` gives the default record times.
    static CommandLine parse(const QString& text, const QDate& today);
    /// A 12-character MMDDYYHHMMSS time; invalid for any other length or a bad date.
    static QDateTime recordTime(const QString& digits);
    /// The button of the selection window's view row that `logId` presses; -1 for none.
    static int viewButton(int logId);

    /// The command as one text again: the fields as written and the path in double quotes.
    QString text() const;
    /// The numeric channel entries in order, at most `mostChannels`.
    QList<qint32> channelIds() const;
};

} // namespace lorvane
