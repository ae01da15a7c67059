// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/GraphSelection.h"

#include <QList>
#include <functional>

namespace lorvane {

class frmProgress;
struct RunContext;

/// The waveform window as the graph of waveform rows: how GraphWindows makes it from the
/// rows of the log grid.
class WaveGraphMaker
{
public:
    /// Makes the waveform window known for the waveform kind: a window of the run `context`
    /// (which must outlive every later open), its loads shown in `progress` (may be null),
    /// its help requests handed to `help`. It opens on the chosen row and steps through the
    /// others; a capture that does not load has told why and leaves no window.
    static void add(RunContext& context, frmProgress* progress,
                    std::function<void(const QString& topic)> help);
    /// The `RecCounter` of each row of `selection`, in order: the captures the window steps
    /// through.
    static QList<qint32> series(const GraphSelection& selection);
};

} // namespace lorvane
