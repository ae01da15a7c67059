// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"
#include "query/engine/SortState.h"

namespace lorvane {

class SqliteDatabase;

/// "Show Flicker Max/Min": per record the interval, then for each of the twelve extremes (maximum
/// and minimum, short and long term, phases a, b, c) its status, stamp, mode and value.
class FlickerGrid
{
public:
    /// The grid of slice `numbers` in the order of `sort`, read from the query's tables
    /// alone; the flicker values in the `DataFormat` setting's pattern. Throws StorageError
    /// when the tables cannot be read.
    static GridTable fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          const SortState& sort, const QString& dataFormat);
};

} // namespace lorvane
