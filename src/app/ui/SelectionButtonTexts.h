// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/selection/ViewButtons.h"

#include <array>

namespace lorvane {

/// Caption and tool tip of a button of the selection window, each with its text id.
struct ButtonText
{
    const char* captionId;
    const char* caption;
    const char* tipId;
    const char* tip;
};

/// The view buttons, in `ViewButtons` order.
const std::array<ButtonText, ViewButtons::count>& viewButtonTexts();
/// The selection buttons: meter 1, meter 2, data points, time range, back, help.
const std::array<ButtonText, 6>& selectionButtonTexts();

} // namespace lorvane
