// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"
#include "query/engine/LogFileEntry.h"
#include "query/engine/QueryCatalog.h"

#include <QList>

namespace lorvane {

struct QueryContext;

/// The snapshot of the moment that the limit, input, relay and flicker views show beside
/// their own log: the selected points' snapshots over the view's range, read into the same
/// query's snapshot tables, as the snapshot view's grid.
class MomentSnapshot
{
public:
    /// Loads the snapshots of `context`'s range and selected data ids from `files` (the view's
    /// expanded file list, whose positions are the query's device indices) into slice
    /// `numbers` (whose query the view created). One slice only: the view has no pages, so a
    /// range past the row budget keeps its first part. Throws StorageError.
    static void read(const QueryContext& context, QList<LogFileEntry>& files,
                     const QueryNumbers& numbers);
    /// The grid of the snapshots `read` left in slice `numbers`, from the scratch tables alone.
    /// Throws StorageError.
    static GridTable fill(const QueryContext& context, const QueryNumbers& numbers);
};

} // namespace lorvane
