// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane {

/// A translation that names its font (`pFontName` of the translation database) is shown in
/// that font: the font becomes the program's default, which every window, dialog and message
/// box takes at its load. With an inactive catalogue or "no_font" nothing changes. Call it
/// once the catalogue is installed and before the first window loads.
void ApplyFont();

} // namespace lorvane
