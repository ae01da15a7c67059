// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace lorvane {

/// The sixteen colours that boundary line files and the built-in curve name by number: 0 black,
/// 1 blue, 2 green, 3 cyan, 4 red, 5 magenta, 6 yellow, 7 white, 8 grey, 9 to 14 the light
/// forms of 1 to 6, 15 bright white. A number outside 0 to 15 gives black.
struct ClassicPalette
{
    static QColor color(int index);
    /// The colour of voltage channel `channel` (0 to 5) on every page.
    static QColor channel(int channel);
};

} // namespace lorvane
