// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"

#include <QList>
#include <QPair>

namespace lorvane {

class LoadProgress;

class SqliteDatabase;
struct QueryContext;

/// Copies the power quality records of a range into `PQLog_{Q}_{S}` and links them with the
/// captures of the same query.
class PqLoader
{
public:
    /// The records whose start lies in the context's range, from every used file of `files`
    /// (for a split-log meter its PQ_LOG file). Throws StorageError when a statement fails.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers);

    /// The waveform link check: a record whose start (stamp and ms, within 0.05 ms) is the
    /// trigger of a capture of the same meter in `WaveformLog_{Q}_{S}` gets `WaveformLink` -1;
    /// the others keep what the meter stored. Returns (`DeviceIndex`, `RecCounter`) of the
    /// records whose capture is missing, in table order. `progress` (null for none) is told the
    /// share of the records checked. Throws StorageError.
    static QList<QPair<qint64, qint64>>
    linkCaptures(SqliteDatabase& db, const QueryNumbers& numbers, LoadProgress* progress = nullptr);
};

} // namespace lorvane
