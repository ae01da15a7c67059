// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/DayWalk.h"
#include "query/engine/QueryCatalog.h"

namespace lorvane {

struct QueryContext;

/// Copies the capture rows of a range into `WaveformLog_{Q}_{S}`.
class WaveformLoader
{
public:
    /// The rows whose first sample (`Date/Time`) lies in the context's range, from every used
    /// file of `files` (for a split-log meter its WAVEFORM and TRANSIENT files). Throws
    /// StorageError when a statement fails.
    static DayWalk::Result load(QueryContext& context, QList<LogFileEntry>& files,
                                const QueryNumbers& numbers);
};

} // namespace lorvane
