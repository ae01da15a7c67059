// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AxisRange.h"
#include "PlotSeries.h"

#include <QList>
#include <memory>
#include <optional>

namespace lorvane {

/// The extents a chart starts from: x from the first to the last sample of all series, y over
/// the values drawn with a tenth of the span as margin on each side (a flat series gets a tenth
/// of its value, at least 1, so the axis does not collapse; so does x of a single instant).
class DataBounds
{
public:
    static std::optional<Viewport> of(const QList<std::shared_ptr<const PlotSeries>>& series);
    /// `range` widened by a tenth of its span on each side (the flat case as above).
    static AxisRange withMargin(const AxisRange& range);
};

} // namespace lorvane
