// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/QueryCatalog.h"
#include "query/engine/ViewResult.h"

namespace lorvane {

struct QueryContext;

/// The system event view (log kind 11): "Show System Events".
class SystemEventView
{
public:
    /// One fresh query over the context's files and range, sorted by the context's sort item
    /// and direction. Throws StorageError when a statement fails, Fault for an unknown sort
    /// item.
    static ViewResult run(QueryContext& context);
    /// The grids of query `numbers` from its tables alone, in the context's sort: a new sort
    /// or a buffered press reads no meter file. Throws StorageError, Fault for an unknown sort
    /// item.
    static QList<GridTable> grids(QueryContext& context, const QueryNumbers& numbers);
};

} // namespace lorvane
