// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"

namespace lorvane {

struct QueryContext;

/// Copies system events (`SystemEventLog_{n}`) of the range into `SystemEventLogA_{Q}_{S}`.
class SystemEventLoader
{
public:
    /// Loads the records of `files` (the expanded list) in the context's range into the
    /// slice tables of `numbers`. Returns the walk with the rows found. Throws StorageError.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers);
};

} // namespace lorvane
