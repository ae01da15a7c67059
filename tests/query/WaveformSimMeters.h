// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "query/engine/QueryContext.h"
#include "store/TempQueryDatabase.h"

#include <QTemporaryDir>
#include <memory>

namespace lorvane::test {

/// Simulated meters and a scratch database for the limit, PQ and waveform view tests. The
/// meters are written once per test program by the real lorvane-sim (two days from
/// 2024-03-04, small snapshot plan).
class WaveformSimMeters
{
public:
    WaveformSimMeters();

    /// Standard (type 3), talmo (type 0) and split (type 5) meters, as the selection window
    /// hands them over.
    static LogFileEntry standard();
    static LogFileEntry talmo();
    static LogFileEntry split();
    /// One log database of the split meter ("PQ_LOG", "WAVEFORM", "TRANSIENT" ...).
    static QString splitLog(const QString& logName);

    /// A context over `files` and [start, end] (`YYYY-MM-DD HH:MM:SS`) on a fresh scratch.
    QueryContext context(const QList<LogFileEntry>& files, const char* start, const char* end);

    static QDateTime at(const char* text);

private:
    QTemporaryDir m_dir;
    std::unique_ptr<TempQueryDatabase> m_scratch;
};

} // namespace lorvane::test
