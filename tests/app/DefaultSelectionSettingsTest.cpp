// SPDX-License-Identifier: GPL-3.0-or-later
#include "RecordingStartupHost.h"
#include "TemporaryInstallation.h"
#include "app/StartupSequence.h"
#include "platform/ProfileFile.h"
#include "query/selection/DefaultSelection.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::DefaultSelection;
using lorvane::ProfileFile;
using lorvane::test::TemporaryInstallation;

TEST(DefaultSelectionSettings, RoundTripOfEveryKey)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    TemporaryInstallation::writeText(file, "[LocalSystem]\nTempLogRecSize=700\n");

    DefaultSelection selection;
    selection.device1 = "Feeder A";
    selection.device2 = "Feeder B";
    selection.device1Path = "/logs/a.DB";
    selection.device2Path = "/logs/b.dml";
    selection.dataIds[0] = 20617;
    selection.dataIds[1] = 50123;
    selection.dataIds[127] = -7;
    selection.timeOption = 3;
    selection.timeInterval = 7;
    selection.startDateTime = QDateTime(QDate(2024, 2, 29), QTime(23, 5, 9));
    selection.endDateTime = QDateTime(QDate(2024, 12, 1), QTime(0, 0, 0));
    ASSERT_TRUE(selection.write(file));

    const ProfileFile profile(file);
    EXPECT_EQ(profile.readString("DefaultSetting", "TimeOption", ""), "WEEK");
    EXPECT_EQ(profile.readString("DefaultSetting", "StartDateTime", ""), "02/29/2024 23:05:09");
    EXPECT_EQ(profile.readString("DefaultSetting", "EndDateTime", ""), "12/01/2024 00:00:00");
    EXPECT_EQ(profile.readString("DefaultSetting", "Data_3", ""), "0");
    EXPECT_EQ(profile.readString("DefaultSetting", "Data_128", ""), "-7");
    EXPECT_FALSE(profile.hasKey("DefaultSetting", "Data_129"));
    EXPECT_EQ(profile.readString("LocalSystem", "TempLogRecSize", ""), "700");

    DefaultSelection again;
    again.dataIds[5] = 99;
    again.read(file);
    EXPECT_EQ(again.device1, "Feeder A");
    EXPECT_EQ(again.device2, "Feeder B");
    EXPECT_EQ(again.device1Path, "/logs/a.DB");
    EXPECT_EQ(again.device2Path, "/logs/b.dml");
    EXPECT_EQ(again.dataIds, selection.dataIds);
    EXPECT_EQ(again.timeOption, 3);
    EXPECT_EQ(again.timeInterval, 7);
    EXPECT_EQ(again.startDateTime, selection.startDateTime);
    EXPECT_EQ(again.endDateTime, selection.endDateTime);

    // Only the time keys change when the range is written alone.
    again.timeOption = DefaultSelection::noTimeOption;
    again.device1 = "not written";
    ASSERT_TRUE(again.writeTimeRange(file));
    EXPECT_EQ(profile.readString("DefaultSetting", "TimeOption", "x"), "");
    EXPECT_EQ(profile.readString("DefaultSetting", "Device1", ""), "Feeder A");
}

TEST(DefaultSelectionSettings, ReadsOptionsInAnyCaseAndDamagedValuesAsEmpty)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    TemporaryInstallation::writeText(
        file, "[defaultsetting]\ntimeoption=month\nData_1=20621\nData_2=lots\nData_3= 26003 \n"
              "StartDateTime=3/4/2024 9:05\nEndDateTime=13/40/2024 10:00:00\n");
    DefaultSelection selection;
    selection.read(file);
    EXPECT_EQ(selection.timeOption, 4);
    // A month with no interval key: the interval is undefined.
    EXPECT_EQ(selection.timeInterval, 0);
    EXPECT_EQ(selection.dataIds[0], 20621);
    EXPECT_EQ(selection.dataIds[1], 0);
    EXPECT_EQ(selection.dataIds[2], 26003);
    EXPECT_EQ(selection.dataIds[3], 0);
    EXPECT_EQ(selection.startDateTime, QDateTime(QDate(2024, 3, 4), QTime(9, 5)));
    EXPECT_FALSE(selection.endDateTime.isValid());

    for (const char* option : {"between", "Hour", "DAY", "week", "Year"}) {
        ProfileFile(file).writeString("DefaultSetting", "TimeOption", option);
        selection.read(file);
        EXPECT_EQ(DefaultSelection::timeOptionNames()[selection.timeOption],
                  QString(option).toUpper());
    }
    // An empty option is the first run; an unknown one is treated alike.
    for (const char* option : {"", "fortnight"}) {
        ProfileFile(file).writeString("DefaultSetting", "TimeOption", option);
        selection.read(file);
        EXPECT_EQ(selection.timeOption, DefaultSelection::noTimeOption);
    }

    EXPECT_FALSE(DefaultSelection::parseDateTime("2024-03-04 09:05:00").isValid());
    EXPECT_FALSE(DefaultSelection::parseDateTime("02/30/2024 00:00:00").isValid());
    EXPECT_FALSE(DefaultSelection::parseDateTime("02/28/2024 24:00:00").isValid());
    EXPECT_EQ(DefaultSelection::parseDateTime(" 12/31/1999 "),
              QDateTime(QDate(1999, 12, 31), {0, 0}));
}

TEST(DefaultSelectionSettings, StartUpLoadsTheSavedSelection)
{
    TemporaryInstallation installation;
    installation.writePathsFile();
    const QString settingsFile = installation.dataFolder() + "/Lorvane.Ini";
    TemporaryInstallation::writeText(settingsFile,
                                     "[DefaultSetting]\nDevice1=Feeder A\n"
                                     "Data_2=21017\nTimeOption=Day\nTimeInterval=3\n");
    lorvane::test::RecordingStartupHost host;
    host.system = installation.systemFolder();
    lorvane::RunContext context;
    ASSERT_EQ(lorvane::StartupSequence(host, context).run(""),
              lorvane::StartupSequence::Outcome::Running);
    EXPECT_EQ(context.defaultSelection.device1, "Feeder A");
    EXPECT_EQ(context.defaultSelection.dataIds[1], 21017);
    EXPECT_EQ(context.defaultSelection.timeOption, 2);
    EXPECT_EQ(context.defaultSelection.timeInterval, 3);
    context.shutDown();
}
