// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"
#include "query/engine/SortState.h"

namespace lorvane {

class SqliteDatabase;

/// "Show System Events": the events of a query as the meter's download decoded them, events of one
/// instant in their `Sequence` order.
class SystemEventGrid
{
public:
    /// The grid of slice `numbers` in the order of `sort`, read from the query's tables
    /// alone. Throws StorageError when the tables cannot be read.
    static GridTable fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          const SortState& sort);
};

} // namespace lorvane
