// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"

namespace lorvane {

struct QueryContext;

/// Copies input records (`InputLog_{n}`) with any stamp in the range into `InputLogA_{Q}_{S}`, then
/// the settings of every `Index` found (`InputLogDataItem`) into `InputLogDataItem_{Q}_{S}`.
class InputLoader
{
public:
    /// Loads the records of `files` (the expanded list) in the context's range into the
    /// slice tables of `numbers`. Returns the walk with the rows found. Throws StorageError.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers);
};

} // namespace lorvane
