// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DayWalk.h"
#include "QueryCatalog.h"
#include "SortState.h"
#include "ViewResult.h"
#include "store/LogKind.h"

#include <functional>

namespace lorvane {

struct QueryContext;

/// The road the input, relay, flicker and system event views share: expand the files, create
/// the query, run the kind's loader, fill its grids, and write the range label.
class StatusView
{
public:
    using Loader =
        std::function<DayWalk::Result(QueryContext&, QList<LogFileEntry>&, const QueryNumbers&)>;
    /// Fills the kind's grids from the query's tables alone: a new sort or a buffered press
    /// calls it again without reading a meter file.
    using Grids = std::function<QList<GridTable>(QueryContext&, const QueryNumbers&)>;

    /// The query's files made from the selection's (a split-log meter becomes its log files).
    using Expand = std::function<QList<LogFileEntry>(const QList<LogFileEntry>&)>;

    /// Runs one fresh query of `kind` over the files `expand` gives (by default
    /// `LogFileList::expand` for the kind). Throws StorageError when a statement fails and
    /// Fault when the context's sort item is not one of the kind's.
    static ViewResult run(QueryContext& context, LogKind kind, const Loader& load,
                          const Grids& grids, const Expand& expand = {});
    /// The sort state the context asks for: its sort item ("" for Date/Time) and direction.
    /// Throws Fault (Other) naming an item the kind does not have.
    static SortState sortState(const QueryContext& context, LogKind kind);
    /// `load`, followed by the snapshots of the same range that the kind shows beside its log.
    static Loader withMomentSnapshot(Loader load);
};

} // namespace lorvane
