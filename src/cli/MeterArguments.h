// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"

#include <QDateTime>
#include <optional>

namespace lorvane::cli {

/// The meters and times that the commands reading log rows take on their command line.
class MeterArguments
{
public:
    /// A meter time `YYYY-MM-DD` or `YYYY-MM-DD HH:MM:SS` (or with `T`): a date alone is the
    /// day's first second, or its last one for the `end` of a range. Nothing when it is none.
    static std::optional<QDateTime> time(const QString& text, bool end);
    /// The meter file `given` as the selection window opens it, as device `deviceIndex`: a
    /// Device Master Log through its system event database. Nothing, with the message
    /// printed, when the file is missing. Throws StorageError or Fault for a file that is no
    /// meter database.
    static std::optional<LogFileEntry> meter(const QString& given, qint32 deviceIndex);
};

} // namespace lorvane::cli
