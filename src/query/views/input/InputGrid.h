// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/QueryCatalog.h"
#include "query/engine/SortState.h"

namespace lorvane {

class SqliteDatabase;

/// "Show Inputs": the input records of a query joined with their settings; a record whose module
/// and input have no settings row is left out.
class InputGrid
{
public:
    /// The grid of slice `numbers` in the order of `sort`, read from the query's tables
    /// alone. Throws StorageError when the tables cannot be read.
    static GridTable fill(SqliteDatabase& scratch, const QueryNumbers& numbers,
                          const SortState& sort);
};

} // namespace lorvane
