// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphItem.h"
#include "PGraphView.h"

#include <QString>
#include <array>

namespace lorvane {

/// The stored defaults of the power graphs that the set-up windows and the graph read: per
/// chart kind eight colours (six channels, then foreground and background) and the comment
/// block. They live in the settings file: sections "Circle Channel{n} Color" and "XY
/// Channel{n} Color" with keys `Red`, `Green`, `Blue`, and section `Comment Block` with keys
/// `Line 1` and `Line 2`.
struct PowerGraphDefaults
{
    static constexpr int colorEntries = 8;
    static constexpr int foreground = 6;
    static constexpr int background = 7;
    using Colors = std::array<PGraphColor, colorEntries>;

    std::array<Colors, 2> colors{factoryColors(PGraphView::Kind::Circular),
                                 factoryColors(PGraphView::Kind::XY)};
    std::array<QString, 2> comment;

    Colors& of(PGraphView::Kind kind) { return colors.at(size_t(kind)); }
    const Colors& of(PGraphView::Kind kind) const { return colors.at(size_t(kind)); }
    /// The colours of a kind as delivered: red, green, blue, cyan, magenta, yellow, then
    /// black on white for the circle and white on black for the XY graph.
    static Colors factoryColors(PGraphView::Kind kind);
    /// "&Restore" of the colour set-up: the delivered colours of `kind`, the other kind kept.
    void restore(PGraphView::Kind kind) { of(kind) = factoryColors(kind); }
    /// The settings section of entry `entry` (0 to 7) of `kind`.
    static QString section(PGraphView::Kind kind, int entry);
};

/// Reads and writes PowerGraphDefaults key by key.
class PGraphModule
{
public:
    /// Every entry of `settingsFile`; a missing key or one that is no number keeps its
    /// default, a number outside 0 to 255 is clamped.
    static PowerGraphDefaults LoadPowerGraphDefaults(const QString& settingsFile);
    /// Writes every colour entry and the comment block. False at the first key that cannot be
    /// written.
    static bool SavePowerGraphDefaults(const QString& settingsFile,
                                       const PowerGraphDefaults& defaults);
    /// A component as the file holds it: a three-character field, "0  " to "255".
    static QString componentText(int value);
};

} // namespace lorvane
