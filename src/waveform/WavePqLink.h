// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WavePqEvent.h"
#include "query/engine/QueryCatalog.h"

#include <optional>

namespace lorvane {

class SqliteDatabase;
struct WaveformRecord;

/// Finds the power quality record a capture belongs to: a record of the same meter in the
/// query's `PQLog_{Q}_{S}` with its waveform link set whose first and last waveform numbers
/// enclose the capture's number.
class WavePqLink
{
public:
    /// The event of `record` in query `numbers`, or nothing when the query holds no PQ
    /// records or none is linked to this capture. Throws StorageError when a statement fails.
    static std::optional<WavePqEvent> find(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                           const WaveformRecord& record);
};

} // namespace lorvane
