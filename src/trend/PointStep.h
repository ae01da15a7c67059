// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSet.h"

#include <QList>
#include <optional>

namespace lorvane {

/// One sample found by a step of the data capture panel.
struct FoundPoint
{
    int set = -1;
    int index = -1;
    double time = 0;
    double value = 0;
};

/// "Next >" and "< Previous" of the data capture panel: from the cursor's time, the nearest
/// sample strictly after (before) it on all sets or on the one in focus. Between sets with a
/// sample at the same time the first in the list wins, so repeated steps visit every instant.
class PointStep
{
public:
    /// `focus` -1 for "All Data Sets", else the index of the set. Nothing when no sample lies
    /// beyond the cursor ("No Next Point." / "No Previous Point.").
    static std::optional<FoundPoint> next(const QList<GraphSet>& sets, int focus, double cursor);
    static std::optional<FoundPoint> previous(const QList<GraphSet>& sets, int focus,
                                              double cursor);
};

} // namespace lorvane
