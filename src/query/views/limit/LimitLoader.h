// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"

namespace lorvane {

struct QueryContext;

/// Copies the limit records of a range into `LimitsLog_{Q}_{S}`, each joined with its limit
/// item, and names their data points in `TagNames_{Q}_{S}`.
class LimitLoader
{
public:
    /// The limit records whose start lies in the context's range (a limit that began before
    /// the range is not found, whatever its end), from every used file of `files`. Throws
    /// StorageError when a statement fails.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers);

    /// Adds the distinct data ids of the limit rows to `TagNames_{Q}_{S}` with `LogSource` 4
    /// and their dictionary names (the id's "N/A" text without a dictionary). Throws
    /// StorageError.
    static void fillTagNames(QueryContext& context, const QueryNumbers& numbers);

    /// `LogSource` of the tag names that limit rows use.
    static constexpr int limitLogSource = 4;
};

} // namespace lorvane
