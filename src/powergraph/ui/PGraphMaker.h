// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QString;

namespace lorvane {

struct RunContext;

/// The power graphs as the graphs of the snapshot and demand grids: &Graph opens the item
/// choice `SelPGraph` over the query shown, and its "&OK" the circular or XY graph.
class PGraphMaker
{
public:
    /// Makes the power graph known for Snapshots and Demand: a window of the run `context`
    /// (which must outlive every later open), its help requests handed to `help`. A maker
    /// already registered for these kinds (the trend graph) is kept as the choice "Trend
    /// Graph" of the item choice, so this is called after the other graph makers.
    static void add(RunContext& context, std::function<void(const QString& topic)> help);
};

} // namespace lorvane
