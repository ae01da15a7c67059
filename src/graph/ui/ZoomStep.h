// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/AxisRange.h"

namespace lorvane {

/// One change of a chart's zoom as the user made it, so that charts sharing an axis can make
/// the same change (and keep the same undo steps).
struct ZoomStep
{
    enum class Kind
    {
        Push,  ///< rubber band or command: a new undo step
        Slide, ///< wheel or pan: a step of a gesture
        Undo,
        Reset,
    };
    Kind kind = Kind::Push;
    /// The view asked for (Push, Slide).
    Viewport view;
};

} // namespace lorvane
