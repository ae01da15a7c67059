// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"

namespace lorvane {

struct QueryContext;

/// Copies relay records (`RelayLog_{n}`) with any of their trigger, command or acknowledge stamps
/// in the range into `RelayLogA_{Q}_{S}`, then the settings of every `Index` found
/// (`RelayLogDataItem`) into `RelayLogDataItem_{Q}_{S}`.
class RelayLoader
{
public:
    /// Loads the records of `files` (the expanded list) in the context's range into the
    /// slice tables of `numbers`. Returns the walk with the rows found. Throws StorageError.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers);
};

} // namespace lorvane
