// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QString;

namespace lorvane {

struct RunContext;

/// The relay logic window as the graph of relay rows: how GraphWindows makes it from the rows
/// of the log grid.
class RelayLogicMaker
{
public:
    /// Makes the window known for the relay kind: a window on the scratch database of the run
    /// `context` (which must outlive every later open), its help requests handed to `help`. It
    /// opens on the chosen row and steps through the others; a record whose tree cannot be
    /// read has told why and leaves no window.
    static void add(RunContext& context, std::function<void(const QString& topic)> help);
};

} // namespace lorvane
