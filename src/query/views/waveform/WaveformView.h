// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/QueryCatalog.h"
#include "query/engine/ViewResult.h"

namespace lorvane {

struct QueryContext;

/// The waveform view (log kind 9): the capture rows of the selection of the chosen type, with their
/// settings and full scales.
class WaveformView
{
public:
    static constexpr const char* name = "waveform";

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
