// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"

#include <QDateTime>
#include <QString>
#include <optional>

namespace lorvane::cli {

/// What the commands that read meters share: meter times and meter files as given on the
/// command line.
class MeterArguments
{
public:
    /// "YYYY-MM-DD" (the start or, with `end`, the last second of the day) or
    /// "YYYY-MM-DD HH:MM:SS" ('T' between them too), as meter time; nothing when malformed.
    static std::optional<QDateTime> parseTime(const QString& text, bool end);

    /// `--from` or `--to` (the option given) with its value: the time into `from` or `to`.
    /// Success, or the usage code after the usage message when the value is no time.
    static int takeRangeEnd(const QString& option, const QString& value, QDateTime& from,
                            QDateTime& to);

    /// The meter as the selection window opens it, used, at position `index`: its device
    /// record read; a Device Master Log opens through its system event log. Nothing, after
    /// the message, when the file does not exist; throws Fault when it cannot be read.
    static std::optional<LogFileEntry> open(const QString& given, int index);
};

} // namespace lorvane::cli
