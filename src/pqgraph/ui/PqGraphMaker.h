// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/GraphSelection.h"

#include <functional>

namespace lorvane {

struct RunContext;

/// The power quality graph as the graph of PQ rows: how GraphWindows makes it from the log
/// grid's query.
class PqGraphMaker
{
public:
    /// Makes the window known for the PQ kind: a window of the run `context` (which must
    /// outlive every later open) on the query's PQ table, reading the envelope setting of the
    /// run at each draw, its help requests handed to `help`. A double click on an event asks
    /// `openGraph` (the frame, which places every graph window) for the waveform window on its
    /// capture.
    static void add(RunContext& context, std::function<void(const QString& topic)> help,
                    std::function<void(const GraphSelection& selection)> openGraph);
};

} // namespace lorvane
