// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"

#include <QList>
#include <QPair>

namespace lorvane {

class SqliteDatabase;

/// The power quality grid of a query slice, and the captures of one of its records.
class PqGrid
{
public:
    /// The heading row.
    static QStringList columns();
    /// The column of the capture picture, "Waveforms".
    static constexpr int waveformsColumn = 12;
    /// The condition that colours a row of condition `name`: the first of "SURGE", "SAG",
    /// "START" and "END" the name holds (any case), or empty.
    static QString conditionKey(const QString& name);

    /// Reads `PQLog_{Q}_{S}` in time order (descending when asked), meters and channels
    /// ascending within one instant. `missing` lists (`DeviceIndex`, `RecCounter`) of records
    /// whose capture the link check did not find: their key `CaptureMissing` is true. Keys per
    /// row: `DeviceIndex`, `Index`, `RecCounter`, `SWNumber`, `EWNumber`, `StartDateTime`,
    /// `Startms`, `Condition`, `CaptureMissing`; the picture "Wave" in the "Waveforms" column
    /// when `WaveformLink` is set, and the row's condition colour key. Throws StorageError.
    static GridTable fill(SqliteDatabase& db, const QueryNumbers& numbers, bool descending,
                          const QString& dataFormat,
                          const QList<QPair<qint64, qint64>>& missing = {});

    /// "list waveforms": the capture rows of the record with `keys` (a row key map of `fill`):
    /// rows of the same meter and setting `Index` whose `OrigWNumber` lies in `SWNumber` to
    /// `EWNumber` (either end may be missing: the range is then open on that side). Throws
    /// StorageError.
    static GridTable listWaveforms(SqliteDatabase& db, const QueryNumbers& numbers,
                                   const QVariantMap& keys, bool descending,
                                   const QString& dataFormat);
};

} // namespace lorvane
