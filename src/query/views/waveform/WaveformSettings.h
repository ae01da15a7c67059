// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "query/engine/QueryCatalog.h"

#include <QStringList>

namespace lorvane {

class SqliteDatabase;

/// The PQ and waveform setting of capture and PQ rows: copied per meter and setting `Index`
/// into `PQWaveLogDataItem_{Q}_{S}` and `HSInputLabels_{Q}_{S}`; SetupRecordViews shows them.
class WaveformSettings
{
public:
    /// Copies the settings and input labels that the rows of `logTables` use. Throws
    /// StorageError.
    static void load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                     const QueryNumbers& numbers, const QStringList& logTables);
};

} // namespace lorvane
