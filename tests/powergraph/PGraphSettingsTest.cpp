// SPDX-License-Identifier: GPL-3.0-or-later
// The stored defaults of the power graphs: colour entries per chart kind, the comment block
// and section PGraph, which is written only with "Save Settings".
#include "powergraph/PGraphSettings.h"

#include "platform/ProfileFile.h"
#include "powergraph/PGraphModule.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(PGraphModule, MissingFileGivesTheDeliveredColoursAndAnEmptyComment)
{
    const PowerGraphDefaults d = PGraphModule::LoadPowerGraphDefaults(QStringLiteral("/no/file"));
    using K = PGraphView::Kind;
    EXPECT_EQ(d.of(K::Circular).at(0), (PGraphColor{255, 0, 0}));
    EXPECT_EQ(d.of(K::XY).at(5), (PGraphColor{255, 255, 0}));
    EXPECT_EQ(d.of(K::Circular).at(PowerGraphDefaults::foreground), (PGraphColor{0, 0, 0}));
    EXPECT_EQ(d.of(K::Circular).at(PowerGraphDefaults::background), (PGraphColor{255, 255, 255}));
    EXPECT_EQ(d.of(K::XY).at(PowerGraphDefaults::foreground), (PGraphColor{255, 255, 255}));
    EXPECT_EQ(d.of(K::XY).at(PowerGraphDefaults::background), (PGraphColor{0, 0, 0}));
    EXPECT_TRUE(d.comment.at(0).isEmpty() && d.comment.at(1).isEmpty());
}

TEST(PGraphModule, SavedEntriesReadBackAndBadTextsKeepTheirDefaults)
{
    QTemporaryDir dir;
    const QString ini = dir.filePath(QStringLiteral("Lorvane.Ini"));
    PowerGraphDefaults d;
    d.of(PGraphView::Kind::XY).at(2) = {7, 80, 255};
    d.comment = {QStringLiteral("Feeder 4"), QStringLiteral("North yard")};
    ASSERT_TRUE(PGraphModule::SavePowerGraphDefaults(ini, d));
    const ProfileFile file(ini);
    EXPECT_EQ(file.readString(QStringLiteral("XY Channel3 Color"), QStringLiteral("Red"), {}), "7");
    EXPECT_TRUE(contents(ini).contains("Red=7  \r\n") || contents(ini).contains("Red=7  \n"));
    EXPECT_EQ(PGraphModule::LoadPowerGraphDefaults(ini).of(PGraphView::Kind::XY),
              d.of(PGraphView::Kind::XY));
    EXPECT_EQ(PGraphModule::LoadPowerGraphDefaults(ini).comment, d.comment);

    ProfileFile edit(ini);
    edit.writeString(QStringLiteral("Circle Channel1 Color"), QStringLiteral("Green"),
                     QStringLiteral("lots"));
    edit.writeString(QStringLiteral("Circle Channel1 Color"), QStringLiteral("Blue"),
                     QStringLiteral("999"));
    const PGraphColor c =
        PGraphModule::LoadPowerGraphDefaults(ini).of(PGraphView::Kind::Circular).at(0);
    EXPECT_EQ(c, (PGraphColor{255, 0, 255}));
}

TEST(PGraphModule, RestoringTheXYColoursChangesNoCircleEntry)
{
    QTemporaryDir dir;
    const QString ini = dir.filePath(QStringLiteral("Lorvane.Ini"));
    PowerGraphDefaults d;
    for (PGraphColor& c : d.of(PGraphView::Kind::Circular))
        c = {1, 2, 3};
    for (PGraphColor& c : d.of(PGraphView::Kind::XY))
        c = {4, 5, 6};
    ASSERT_TRUE(PGraphModule::SavePowerGraphDefaults(ini, d));
    PowerGraphDefaults loaded = PGraphModule::LoadPowerGraphDefaults(ini);
    loaded.restore(PGraphView::Kind::XY);
    ASSERT_TRUE(PGraphModule::SavePowerGraphDefaults(ini, loaded));
    const PowerGraphDefaults after = PGraphModule::LoadPowerGraphDefaults(ini);
    EXPECT_EQ(after.of(PGraphView::Kind::Circular), d.of(PGraphView::Kind::Circular));
    EXPECT_EQ(after.of(PGraphView::Kind::XY),
              PowerGraphDefaults::factoryColors(PGraphView::Kind::XY));
}

TEST(PGraphSettings, NothingIsWrittenWithoutSaveSettings)
{
    QTemporaryDir dir;
    const QString ini = dir.filePath(QStringLiteral("Lorvane.Ini"));
    PGraphSettings s = PGraphSettings::read(ini);
    EXPECT_FALSE(s.saveSettings);
    EXPECT_EQ(s.numDaysView, 1);
    EXPECT_EQ(s.maxY, 130);
    EXPECT_EQ(s.minY, 0);

    s.numDaysView = 7;
    ASSERT_TRUE(s.saveOnClose(ini));
    EXPECT_FALSE(QFile::exists(ini)) << "written without Save Settings";

    s.saveSettings = true;
    s.maxY = 260.5;
    ASSERT_TRUE(s.saveOnClose(ini));
    PGraphSettings back = PGraphSettings::read(ini);
    EXPECT_TRUE(back.saveSettings);
    EXPECT_EQ(back.numDaysView, 7);
    EXPECT_EQ(back.maxY, 260.5);

    // Clearing the box is kept, the values of the last save stay as they were.
    back.saveSettings = false;
    back.numDaysView = 3;
    ASSERT_TRUE(back.saveOnClose(ini));
    const PGraphSettings after = PGraphSettings::read(ini);
    EXPECT_FALSE(after.saveSettings);
    EXPECT_EQ(after.numDaysView, 7);
    const QByteArray before = contents(ini);
    ASSERT_TRUE(after.saveOnClose(ini));
    EXPECT_EQ(contents(ini), before);
}
