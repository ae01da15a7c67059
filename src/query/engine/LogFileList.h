// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LogFileEntry.h"
#include "store/LogKind.h"

#include <QList>

namespace lorvane {

/// Turns the list of open meters into the list of databases a query reads ("expand log
/// files"): a split-log meter becomes the log files its kind of query needs.
class LogFileList
{
public:
    /// The kind of query that wants the PQ log file alone.
    static constexpr int pqFileOnlyKind = -10;

    /// The expanded list; every entry's `deviceIndex` is its position. `queryKind` is a log
    /// kind (9 waveform: logs 10 and 25; `pqFileOnlyKind`: log 13; otherwise all eighteen
    /// logs). Entries of an ordinary meter are copied.
    static QList<LogFileEntry> expand(const QList<LogFileEntry>& files, int queryKind);

    /// The file whose rows carry `deviceIndex` (its position + 1); null when none does.
    static const LogFileEntry* fileOfDevice(const QList<LogFileEntry>& files, qint64 deviceIndex);
};

} // namespace lorvane
