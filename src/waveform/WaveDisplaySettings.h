// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace lorvane {

/// How the waveform window draws its channels: section `Waveform` of the settings file.
/// Colours are kept as the settings file spells them, 0x00BBGGRR.
struct WaveDisplaySettings
{
    static constexpr int itemCount = 15;
    /// The value of the default foreground; every colour outside 0 to 0xFFFFFF reads as it.
    static constexpr qint32 fallbackColor = 65793;

    enum class DisplayMode
    {
        Classic = 0,
        Overlay = 1,
        OverlayGroup = 2,
    };
    enum class OverlayMode
    {
        Overlay = 0,
        OverlayGroup = 1,
    };
    enum class PlotMode
    {
        Line = 0,
        Point = 1,
        LineAndPoint = 2,
    };

    DisplayMode displayMode = DisplayMode::Classic;
    OverlayMode overlayMode = OverlayMode::OverlayGroup;
    qint32 foreColor = 0x010101;
    qint32 backColor = 0xFFFFFF;
    std::array<bool, itemCount> overlayItems{};
    std::array<qint32, itemCount> itemColor{};
    PlotMode plotMode = PlotMode::Line;
    /// 0 to 3: Small, Medium, Large, Micro.
    int pointSize = 0;
    std::array<int, itemCount> itemPointType{};
    std::array<int, itemCount> itemLineType{};
    /// Display frequency of the time axes of the family without the neutral current: 50 or 60.
    int talmoFreq = 60;
    /// System frequency of the interharmonic analysis: 50 or 60.
    int interHarmonicFreq = 60;

    /// The values a missing file gives: every item in the overlay, white item colours.
    WaveDisplaySettings();

    /// Reads section `Waveform` of `settingsFile` key by key, each missing key taking its
    /// default. Unknown mode words read as the first choice, a point size outside 0 to 3 as 0,
    /// a colour that is no number as 0 and one outside 0 to 0xFFFFFF as `fallbackColor`, a
    /// frequency other than 50 as 60. The overlay list is read under `OverLayItems`.
    static WaveDisplaySettings read(const QString& settingsFile);
    /// Writes every key of the section (the overlay list under `OverlayItems`), keeping the rest
    /// of the file. False at the first key that cannot be written.
    bool write(const QString& settingsFile) const;

    /// Writes the key of the interharmonic frequency alone: the menu's choice leaves the
    /// display keys as the file has them.
    static bool writeInterHarmonicFreq(const QString& settingsFile, int hz);

    /// Item names in channel order: "Va" ... "I_n", "Input1" ... "Input8".
    static const QStringList& itemNames();
    /// A colour value as the settings file holds it: "&H" and at least six hex digits.
    static QString colorText(qint32 color);
    /// The colour of a settings text ("&H..." or a decimal number), with the rules of `read`.
    static qint32 parseColor(const QString& text);
    /// Colour to draw item `item` with: its own, unless it would vanish on the background,
    /// then a fixed colour of that channel.
    qint32 drawColor(int item) const;
};

} // namespace lorvane
