// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"

namespace lorvane {

/// Places the nodes of a relay logic tree in columns and rows: inputs in column 0 one row
/// each in input order, each gate one column right of the farthest of what feeds it, the set
/// paths in the column after the last gate, then the delays and the relay. A gate or set path
/// stands at the mean row of what feeds it, the reset delay two rows below the set delay, the
/// relay between the two. Since the gate tree keeps its inputs in order and every node sits
/// between its sources, no two edges cross.
class RelayLogicLayout
{
public:
    /// Sets `column` and `row` of every node and the tree's extents. Expects the nodes in the
    /// builder's order: every node after the nodes that feed it.
    static void place(RelayLogicTree& tree);
};

} // namespace lorvane
