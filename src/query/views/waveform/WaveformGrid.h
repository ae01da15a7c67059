// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"

#include <QVariantList>

namespace lorvane {

class SqliteDatabase;

/// The waveform grid of a query slice: one row per capture row, with what the waveform window
/// needs to open the capture kept as row keys.
class WaveformGrid
{
public:
    /// The "Data Type" choices in list order: "All Waveforms", "Waveform Log", "Transient Log".
    static QStringList typeNames();
    /// The heading row.
    static QStringList columns();

    /// Reads `WaveformLog_{Q}_{S}` in time order (descending when asked). `typeFilter` is a
    /// position in `typeNames` (0 all; 1 rows whose `sample0` names a WAVEFORM capture; 2 a
    /// TRANSIENT one); `condition` (SQL over the table's columns, empty for none) with its
    /// bound `values` narrows the rows further. Keys per row: `DeviceIndex`, `MeterPath`,
    /// `Index`, `CaptureNumber`, `RecCounter`, `TriggerDateTime`, `TriggerMs`, `Transient` and
    /// the waveform window's `Label`. Throws StorageError; Fault for a filter out of range.
    static GridTable fill(SqliteDatabase& db, const QueryNumbers& numbers, bool descending,
                          int typeFilter, const QString& dataFormat, const QString& condition = {},
                          const QVariantList& values = {});
};

} // namespace lorvane
