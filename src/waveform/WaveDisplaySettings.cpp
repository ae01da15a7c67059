// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveDisplaySettings.h"

#include "platform/ProfileFile.h"

namespace lorvane {

namespace {

const QString section = QStringLiteral("Waveform");

QString itemKey(int item, const char* what)
{
    return QStringLiteral("Item%1%2").arg(item).arg(QLatin1String(what));
}

int readInt(const ProfileFile& file, const QString& key, const QString& defaultValue)
{
    return file.readString(section, key, defaultValue).trimmed().toInt();
}

const std::array<const char*, 3> displayModeWords{"Classic", "Overlay", "Overlay_Group"};
const std::array<const char*, 3> plotModeWords{"Line", "Point", "Line_Point"};

/// Index of `text` among `words`, compared in upper case; 0 when none matches.
template <std::size_t N> int wordIndex(const QString& text, const std::array<const char*, N>& words)
{
    const QString upper = text.trimmed().toUpper();
    for (std::size_t i = 0; i < N; ++i) {
        if (upper == QString::fromLatin1(words[i]).toUpper())
            return static_cast<int>(i);
    }
    return 0;
}

} // namespace

WaveDisplaySettings::WaveDisplaySettings()
{
    overlayItems.fill(true);
    itemColor.fill(0xFFFFFF);
}

const QStringList& WaveDisplaySettings::itemNames()
{
    static const QStringList names{
        QStringLiteral("Va"),     QStringLiteral("Vb"),     QStringLiteral("Vc"),
        QStringLiteral("Ia"),     QStringLiteral("Ib"),     QStringLiteral("Ic"),
        QStringLiteral("I_n"),    QStringLiteral("Input1"), QStringLiteral("Input2"),
        QStringLiteral("Input3"), QStringLiteral("Input4"), QStringLiteral("Input5"),
        QStringLiteral("Input6"), QStringLiteral("Input7"), QStringLiteral("Input8")};
    return names;
}

QString WaveDisplaySettings::colorText(qint32 color)
{
    return QStringLiteral("&H") +
           QStringLiteral("%1").arg(static_cast<quint32>(color), 6, 16, QLatin1Char('0')).toUpper();
}

qint32 WaveDisplaySettings::parseColor(const QString& text)
{
    const QString trimmed = text.trimmed();
    bool ok = false;
    qint64 value = 0;
    if (trimmed.startsWith(QLatin1String("&H"), Qt::CaseInsensitive))
        value = trimmed.mid(2).toLongLong(&ok, 16);
    else
        value = trimmed.toLongLong(&ok);
    if (!ok)
        return 0;
    if (value < 0 || value > 0xFFFFFF)
        return fallbackColor;
    return static_cast<qint32>(value);
}

WaveDisplaySettings WaveDisplaySettings::read(const QString& settingsFile)
{
    const ProfileFile file(settingsFile);
    WaveDisplaySettings s;
    s.displayMode = static_cast<DisplayMode>(wordIndex(
        file.readString(section, QStringLiteral("DisplayMode"), QStringLiteral("Classic")),
        displayModeWords));
    // The overlay mode knows only the last two words of the display modes.
    const int overlay = wordIndex(
        file.readString(section, QStringLiteral("OverlayMode"), QStringLiteral("Overlay_Group")),
        displayModeWords);
    s.overlayMode = overlay == 2 ? OverlayMode::OverlayGroup : OverlayMode::Overlay;
    s.foreColor = parseColor(
        file.readString(section, QStringLiteral("ForeColor"), QStringLiteral("&H010101")));
    s.backColor = parseColor(
        file.readString(section, QStringLiteral("BackColor"), QStringLiteral("&HFFFFFF")));

    const QStringList listed =
        file.readString(section, QStringLiteral("OverLayItems"), itemNames().join(u'+'))
            .split(u'+');
    for (int n = 0; n < itemCount; ++n)
        s.overlayItems[n] = listed.contains(itemNames().at(n), Qt::CaseInsensitive);

    for (int n = 0; n < itemCount; ++n) {
        s.itemColor[n] =
            parseColor(file.readString(section, itemKey(n, "Color"), QStringLiteral("&HFFFFFF")));
        s.itemPointType[n] = readInt(file, itemKey(n, "PointType"), QStringLiteral("0"));
        s.itemLineType[n] = readInt(file, itemKey(n, "LineType"), QStringLiteral("0"));
    }
    s.plotMode = static_cast<PlotMode>(
        wordIndex(file.readString(section, QStringLiteral("PlotMode"), QStringLiteral("Line")),
                  plotModeWords));
    s.pointSize = readInt(file, QStringLiteral("PointSize"), QStringLiteral("0"));
    if (s.pointSize < 0 || s.pointSize > 3)
        s.pointSize = 0;
    s.talmoFreq = readInt(file, QStringLiteral("TalmoFreq"), QStringLiteral("60")) == 50 ? 50 : 60;
    s.interHarmonicFreq =
        readInt(file, QStringLiteral("InterHarmonicFreq"), QStringLiteral("60")) == 50 ? 50 : 60;
    return s;
}

bool WaveDisplaySettings::write(const QString& settingsFile) const
{
    ProfileFile file(settingsFile);
    QStringList items;
    for (int n = 0; n < itemCount; ++n) {
        if (overlayItems[n])
            items << itemNames().at(n);
    }
    QList<std::pair<QString, QString>> keys{
        {QStringLiteral("DisplayMode"),
         QString::fromLatin1(displayModeWords[static_cast<int>(displayMode)])},
        {QStringLiteral("OverlayMode"),
         QString::fromLatin1(displayModeWords[static_cast<int>(overlayMode) + 1])},
        {QStringLiteral("ForeColor"), colorText(foreColor)},
        {QStringLiteral("BackColor"), colorText(backColor)},
        {QStringLiteral("OverlayItems"), items.join(u'+')},
        {QStringLiteral("PlotMode"),
         QString::fromLatin1(plotModeWords[static_cast<int>(plotMode)])},
        {QStringLiteral("PointSize"), QString::number(pointSize)},
        {QStringLiteral("TalmoFreq"), QString::number(talmoFreq)},
        {QStringLiteral("InterHarmonicFreq"), QString::number(interHarmonicFreq)}};
    for (int n = 0; n < itemCount; ++n) {
        keys.append({itemKey(n, "Color"), colorText(itemColor[n])});
        keys.append({itemKey(n, "PointType"), QString::number(itemPointType[n])});
        keys.append({itemKey(n, "LineType"), QString::number(itemLineType[n])});
    }
    for (const auto& [key, value] : keys) {
        if (!file.writeString(section, key, value))
            return false;
    }
    return true;
}

bool WaveDisplaySettings::writeInterHarmonicFreq(const QString& settingsFile, int hz)
{
    return ProfileFile(settingsFile)
        .writeString(section, QStringLiteral("InterHarmonicFreq"), QString::number(hz));
}

qint32 WaveDisplaySettings::drawColor(int item) const
{
    // Distinct colours per channel (0x00BBGGRR) for items left at the default white.
    static constexpr std::array<qint32, itemCount> channelColors{
        0x0000C0, 0x008000, 0xC00000, 0x0080FF, 0x808000, 0xC000C0, 0x404040, 0x000080,
        0x008080, 0x800000, 0x800080, 0x408000, 0x004080, 0x804000, 0x808080};
    const qint32 own = itemColor.at(item);
    return own == backColor ? channelColors.at(item) : own;
}

} // namespace lorvane
