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

    /// The files of a query that shows captures beside their PQ records. A split-log meter
    /// keeps the two in different files: `all`, the query's device list, holds the PQ files,
    /// then the capture files not already among them, so that every row's device index names
    /// the file it came from; `pq` and `captures` are the two parts with those indexes. The
    /// files of a meter in one file are all three.
    struct CaptureFiles
    {
        QList<LogFileEntry> all;
        QList<LogFileEntry> pq;
        QList<LogFileEntry> captures;
    };
    static CaptureFiles withPqRecords(const QList<LogFileEntry>& files);

    /// The file whose rows carry `deviceIndex` (its position + 1); null when none does.
    static const LogFileEntry* fileOfDevice(const QList<LogFileEntry>& files, qint64 deviceIndex);
};

} // namespace lorvane
