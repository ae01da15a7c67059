// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GraphSet.h"
#include "TrendGraphType.h"
#include "graph/AxisRange.h"

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

/// The extents of one graph of a tab: x, and y of the left and of the right axis.
struct TrendExtentsOfGraph
{
    AxisRange x;
    AxisRange left;
    AxisRange right;

    bool operator==(const TrendExtentsOfGraph&) const = default;
};

/// One tab of the trend window: "Main Graph" over the loaded sets, or a millisecond view over
/// a short stretch of them (x in seconds from `msStart`). Both graphs of a tab draw the same
/// sets: the Preview over the whole span, the Viewport over the part chosen.
struct TrendView
{
    QString name;
    bool milliseconds = false;
    double msStart = 0;
    QList<GraphSet> sets;
    TrendExtentsOfGraph preview;
    TrendExtentsOfGraph viewport;
    TrendGraphType type = TrendGraphType::Line;
    /// "Interval Gap" in days; 0 joins every sample.
    double intervalGapDays = 0;
    /// 0xRRGGBB of the background, the grid, the texts and the value read-out.
    quint32 backColour = 0xFFFFFF;
    quint32 gridColour = 0xC8C8C8;
    quint32 textColour = 0x000000;
    quint32 valueColour = 0x800000;
    /// The data capture cursor, in the tab's x unit.
    std::optional<double> cursor;
};

} // namespace lorvane
