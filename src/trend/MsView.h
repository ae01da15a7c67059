// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSet.h"

#include <QList>
#include <optional>

namespace lorvane {

/// What the panel's Generate asks for: the sets (all, or the one in focus), the start time,
/// and either a number of points of each set or a duration in milliseconds.
struct MsViewRequest
{
    int focus = -1;
    double start = 0; ///< meter wall-clock milliseconds
    bool byPoints = true;
    qint64 points = 0;
    double durationMs = 0;
};

/// A millisecond view: the samples of a short stretch with x counted in seconds from its
/// start, so that the fraction of a second stays readable where a clock axis would round it.
struct MsView
{
    double start = 0;
    QList<GraphSet> sets;
};

class MsViewMaker
{
public:
    /// The view, or nothing ("No Points Selected, or invalid Time Range") when no set is
    /// chosen, the count or duration is not above zero, or no sample lies in the stretch.
    static std::optional<MsView> make(const QList<GraphSet>& sets, const MsViewRequest& request);
};

} // namespace lorvane
