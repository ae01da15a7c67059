// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/QueryCatalog.h"
#include "query/engine/ViewResult.h"

namespace lorvane {

struct QueryContext;

/// The power quality view (log kind 10): the PQ records of the selection, the captures of the same
/// range linked to them, the capture settings and full scales, and the captures of the first record
/// as the detail grid.
class PqView
{
public:
    static constexpr const char* name = "pq";

    /// Creates the query in `context.scratch`, loads the selection's range from the meter
    /// files and fills the grids. An empty range gives empty grids with their headings and the
    /// "No data found" range text. Throws StorageError when a statement fails, Fault for a sort
    /// item or type filter the view does not know.
    static ViewResult run(QueryContext& context);
    /// The grids of query `numbers` from its tables alone, in the context's sort and type
    /// choice: a new sort or a buffered press reads no meter file. Throws StorageError, Fault
    /// for a sort item or type filter the view does not know.
    static QList<GridTable> grids(QueryContext& context, const QueryNumbers& numbers);
};

} // namespace lorvane
