// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GridTable.h"
#include "LogFileEntry.h"
#include "QueryCatalog.h"

#include <QStringList>

namespace lorvane {

class SqliteDatabase;

/// The PQ and waveform setting of capture and PQ rows: copied per meter and setting `Index`
/// into `PQWaveLogDataItem_{Q}_{S}` and `HSInputLabels_{Q}_{S}`, and shown as a table.
class WaveformSettings
{
public:
    /// Copies the settings and input labels that the rows of `logTables` use. Throws
    /// StorageError.
    static void load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                     const QueryNumbers& numbers, const QStringList& logTables);

    /// The hook-up word of a `HookUp` value ("Wye", "Delta, 3 CTs" ...; "N/A" when unknown)
    /// and the name of its picture (empty when it has none).
    static QString hookUpText(qint64 hookUp);
    static QString hookUpPicture(qint64 hookUp);

    /// The setting of one row (its `DeviceIndex` and `Index`): general rows, one row per
    /// channel, the inputs, the full scales and transformer ratios. A setting that was not
    /// found shows the heads with empty values. Throws StorageError.
    static GridTable view(SqliteDatabase& db, const QueryNumbers& numbers, qint64 deviceIndex,
                          qint64 index);
};

} // namespace lorvane
