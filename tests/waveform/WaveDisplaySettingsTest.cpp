// SPDX-License-Identifier: GPL-3.0-or-later
// Section Waveform of the settings file: defaults, damaged values, the two spellings of the
// overlay key, and a write that reads back the same.
#include "waveform/WaveDisplaySettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

QString writeIni(const QTemporaryDir& dir, const QByteArray& text)
{
    const QString path = dir.filePath(QStringLiteral("Lorvane.Ini"));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(text);
    return path;
}

} // namespace

TEST(WaveDisplaySettings, MissingFileGivesTheDefaults)
{
    QTemporaryDir dir;
    const WaveDisplaySettings s = WaveDisplaySettings::read(dir.filePath("none.ini"));
    EXPECT_EQ(s.displayMode, WaveDisplaySettings::DisplayMode::Classic);
    EXPECT_EQ(s.overlayMode, WaveDisplaySettings::OverlayMode::OverlayGroup);
    EXPECT_EQ(s.foreColor, 0x010101);
    EXPECT_EQ(s.foreColor, WaveDisplaySettings::fallbackColor);
    EXPECT_EQ(s.backColor, 0xFFFFFF);
    for (int n = 0; n < WaveDisplaySettings::itemCount; ++n) {
        EXPECT_TRUE(s.overlayItems[n]) << n;
        EXPECT_EQ(s.itemColor[n], 0xFFFFFF);
        // White items on the white background still draw in a visible colour.
        EXPECT_NE(s.drawColor(n), s.backColor);
    }
    EXPECT_EQ(s.plotMode, WaveDisplaySettings::PlotMode::Line);
    EXPECT_EQ(s.talmoFreq, 60);
    EXPECT_EQ(s.interHarmonicFreq, 60);
}

TEST(WaveDisplaySettings, DamagedAndUnusualValues)
{
    QTemporaryDir dir;
    const QString path = writeIni(dir, "[waveform]\r\n"
                                       "displaymode=overlay_group\r\n"
                                       "OverlayMode=classic\r\n"
                                       "ForeColor=blue\r\n"
                                       "BackColor=&H1000000\r\n"
                                       "OverLayItems=Vb+ia+Nonsense+Input8\r\n"
                                       "Item3Color=&H00FF00\r\n"
                                       "Item4Color=-5\r\n"
                                       "PlotMode=line_point\r\n"
                                       "PointSize=5\r\n"
                                       "TalmoFreq=50\r\n"
                                       "InterHarmonicFreq=55\r\n"
                                       "Item2LineType=6\r\n");
    const WaveDisplaySettings s = WaveDisplaySettings::read(path);
    EXPECT_EQ(s.displayMode, WaveDisplaySettings::DisplayMode::OverlayGroup);
    EXPECT_EQ(s.overlayMode, WaveDisplaySettings::OverlayMode::Overlay);
    EXPECT_EQ(s.foreColor, 0) << "a colour that is no number draws black";
    EXPECT_EQ(s.backColor, 65793);
    EXPECT_EQ(s.itemColor[3], 0x00FF00);
    EXPECT_EQ(s.itemColor[4], 65793);
    std::array<bool, 15> expected{};
    expected[1] = expected[3] = expected[14] = true;
    EXPECT_EQ(s.overlayItems, expected);
    EXPECT_EQ(s.plotMode, WaveDisplaySettings::PlotMode::LineAndPoint);
    EXPECT_EQ(s.pointSize, 0);
    EXPECT_EQ(s.talmoFreq, 50);
    EXPECT_EQ(s.interHarmonicFreq, 60);
    EXPECT_EQ(s.itemLineType[2], 6);

    const QString empty = writeIni(dir, "[Waveform]\nOverLayItems=\n");
    const WaveDisplaySettings none = WaveDisplaySettings::read(empty);
    EXPECT_EQ(none.overlayItems, (std::array<bool, 15>{}));
}

TEST(WaveDisplaySettings, WriteUsesTheWriteSpellingAndReadsBack)
{
    QTemporaryDir dir;
    const QString path = writeIni(dir, "[LocalSystem]\nDataformat=0.000\n");
    WaveDisplaySettings s;
    s.displayMode = WaveDisplaySettings::DisplayMode::Overlay;
    s.overlayMode = WaveDisplaySettings::OverlayMode::Overlay;
    s.overlayItems.fill(false);
    s.overlayItems[0] = s.overlayItems[6] = true;
    s.foreColor = 0x123456;
    s.itemColor[14] = 0xAB;
    s.itemPointType[7] = 13;
    s.pointSize = 3;
    s.talmoFreq = 50;
    s.interHarmonicFreq = 50;
    ASSERT_TRUE(s.write(path));

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(text.contains(QStringLiteral("OverlayItems=Va+I_n\n")));
    EXPECT_FALSE(text.contains(QStringLiteral("OverLayItems")));
    EXPECT_TRUE(text.contains(QStringLiteral("ForeColor=&H123456\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("Item14Color=&H0000AB\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("DisplayMode=Overlay\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("Dataformat=0.000\n"))) << "other sections stay";

    const WaveDisplaySettings back = WaveDisplaySettings::read(path);
    EXPECT_EQ(back.displayMode, s.displayMode);
    EXPECT_EQ(back.overlayMode, s.overlayMode);
    EXPECT_EQ(back.overlayItems, s.overlayItems);
    EXPECT_EQ(back.foreColor, s.foreColor);
    EXPECT_EQ(back.itemColor, s.itemColor);
    EXPECT_EQ(back.itemPointType, s.itemPointType);
    EXPECT_EQ(back.pointSize, 3);
    EXPECT_EQ(back.talmoFreq, 50);
    EXPECT_EQ(back.interHarmonicFreq, 50);
}

TEST(WaveDisplaySettings, Fault9TheFrequencyMenuWritesItsOwnKeyOnly)
{
    QTemporaryDir dir;
    const QString path = writeIni(dir, "[Waveform]\r\nDisplayMode=Overlay\r\nPointSize=7\r\n");
    ASSERT_TRUE(WaveDisplaySettings::writeInterHarmonicFreq(path, 50));
    const WaveDisplaySettings s = WaveDisplaySettings::read(path);
    EXPECT_EQ(s.interHarmonicFreq, 50);
    EXPECT_EQ(s.displayMode, WaveDisplaySettings::DisplayMode::Overlay);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    // The damaged point size stays as the user wrote it, and no other display key appears.
    EXPECT_TRUE(text.contains("PointSize=7"));
    EXPECT_FALSE(text.contains("PlotMode"));
    EXPECT_FALSE(text.contains("OverlayItems"));
}
