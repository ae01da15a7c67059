// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/AxisRange.h"

#include <optional>

namespace lorvane {

/// The zoom and shift commands of a trend's buttons. Each keeps the centre of the range and
/// scales its span (0.8 in, 1.2 out) or moves both bounds by a fifth of the span. A step that
/// would pass a limit gives nothing: the range stays as it is, without a message.
class TrendZoom
{
public:
    static constexpr double zoomIn = 0.8;
    static constexpr double zoomOut = 1.2;
    static constexpr double shiftShare = 0.2;
    /// The viewport's narrowest x span: one second of meter time, in milliseconds.
    static constexpr double minViewportXSpan = 1000.0;
    /// The viewport may show at most twice the data's x span and 20 times its y span.
    static constexpr double maxViewportXShare = 2.0;
    static constexpr double maxViewportYShare = 20.0;

    /// `minSpan`: one second in a clock tab; a millisecond tab counts in seconds and passes its
    /// own.
    static std::optional<AxisRange> viewportXIn(const AxisRange& view,
                                                double minSpan = minViewportXSpan);
    static std::optional<AxisRange> viewportXOut(const AxisRange& view, double dataXSpan);
    static std::optional<AxisRange> viewportYIn(const AxisRange& view);
    static std::optional<AxisRange> viewportYOut(const AxisRange& view, double dataYSpan);
    static AxisRange previewYIn(const AxisRange& view);
    static AxisRange previewYOut(const AxisRange& view);
    static AxisRange previewYShift(const AxisRange& view, bool up);

    /// `view` with its span times `factor` about its centre.
    static AxisRange scaled(const AxisRange& view, double factor);
};

} // namespace lorvane
