// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"
#include "query/engine/GridTable.h"

namespace lorvane {

/// The grid beside the tree: one line per named input with "Index", "Name", "Hysteresis",
/// "Logic Type" (the type of the gate the input feeds; empty when it feeds a set path
/// directly), "Logic Control" and "Status" ("1", "0", "N/A"), then the lines of the set and
/// reset delays.
class RelayLogicGrid
{
public:
    static GridTable table(const RelayLogicTree& tree);
};

} // namespace lorvane
