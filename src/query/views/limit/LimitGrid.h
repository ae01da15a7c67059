// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"

namespace lorvane {

class SqliteDatabase;

/// The limit grid of a query slice: one row per limit record joined with its data point name.
class LimitGrid
{
public:
    /// Reads `LimitsLog_{Q}_{S}` with `TagNames_{Q}_{S}` in the order of `sortItem` (a limit
    /// sort item text, "" for Date/Time) and direction; `dataFormat` is the user's number
    /// pattern for the value column. Each row keeps `DeviceIndex`, `DataID`, `StartDateTime`
    /// and `Startms` as keys and the picture "Limits". Throws StorageError, or Fault for an
    /// unknown sort item.
    static GridTable fill(SqliteDatabase& db, const QueryNumbers& numbers, bool descending,
                          const QString& sortItem, const QString& dataFormat);

    /// The heading row.
    static QStringList columns();
};

} // namespace lorvane
