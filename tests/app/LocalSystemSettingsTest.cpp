// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LocalSystemSettings.h"

#include "TemporaryInstallation.h"
#include "platform/ProfileFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::LocalSystemSettings;
using lorvane::test::TemporaryInstallation;

namespace {

QString noUserSetting(const QString&, const QString&, const QString&, const QString& def)
{
    return def;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(LocalSystemSettings, MissingFileGivesEveryDefaultOverAnyEarlierValue)
{
    QTemporaryDir dir;
    LocalSystemSettings settings;
    settings.defaultPath = "/old";
    settings.autoLoadDBs = settings.searchSubDirectories = settings.showHalyxLookUp = true;
    settings.useUserHalyxScaledFormats = true;
    settings.useCBEMACurve = false;
    settings.maxDeviceLogNumber = 1;
    settings.tempLogRecSize = 100;
    settings.dataFormat = "0";
    settings.userPQCurveFile = "/curve.ini";
    settings.dataPathMethod = 2;
    settings.currentPath = "/old";
    settings.read(dir.filePath("none.ini"), noUserSetting);

    EXPECT_EQ(settings.defaultPath, "");
    EXPECT_EQ(settings.dataPathMethod, 0);
    EXPECT_EQ(settings.currentPath, "");
    EXPECT_FALSE(settings.autoLoadDBs);
    EXPECT_FALSE(settings.searchSubDirectories);
    EXPECT_FALSE(settings.showHalyxLookUp);
    EXPECT_FALSE(settings.useUserHalyxScaledFormats);
    EXPECT_TRUE(settings.useCBEMACurve);
    EXPECT_EQ(settings.maxDeviceLogNumber, 2);
    EXPECT_EQ(settings.tempLogRecSize, 4500);
    EXPECT_EQ(settings.dataFormat, "0.00");
    EXPECT_EQ(settings.userPQCurveFile, "");
}

TEST(LocalSystemSettings, KeysInAnyCaseTextThatIsNoNumberAndTheReadBuffer)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    const QString longPath = "/" + QString(300, u'p');
    TemporaryInstallation::writeText(
        file, "[localsystem]\nmaxdevicelognumber=abc\nTEMPLOGRECSIZE=50001\ndataformat=0.00000\n"
              "autoloaddbs=yES\nSearchSubDirectories=Y\nShowHalyxLookUp=\"Yes\"\n"
              "UseCBEMACurve=nO\nDefaultPath=" +
                  longPath + "\nDefaultMethod=userset\n");
    LocalSystemSettings settings;
    settings.read(file, noUserSetting);
    EXPECT_EQ(settings.maxDeviceLogNumber, 1);
    EXPECT_EQ(settings.tempLogRecSize, 50000);
    EXPECT_EQ(settings.dataFormat, "0.00000");
    EXPECT_TRUE(settings.autoLoadDBs);
    // Only the whole word counts as yes.
    EXPECT_FALSE(settings.searchSubDirectories);
    EXPECT_TRUE(settings.showHalyxLookUp);
    EXPECT_FALSE(settings.useCBEMACurve);
    // The profile buffer of 255 characters holds 254 and the terminator.
    EXPECT_EQ(settings.defaultPath, longPath.left(254));
    EXPECT_EQ(settings.dataPathMethod, 2);
    EXPECT_EQ(settings.currentPath, longPath.left(254));

    TemporaryInstallation::writeText(file, "[LocalSystem]\nMaxDeviceLogNumber=-3\n"
                                           "TempLogRecSize= 99999999999999999999 \n"
                                           "DataFormat=0.000000\nDataFormat=0.0\n");
    settings.read(file, noUserSetting);
    EXPECT_EQ(settings.maxDeviceLogNumber, 1);
    // Too large to be a number at all: read as 0, then the lower bound.
    EXPECT_EQ(settings.tempLogRecSize, 100);
    // The first line of a key counts.
    EXPECT_EQ(settings.dataFormat, "0.00");
}

TEST(LocalSystemSettings, WriterWritesEveryKeyAndKeepsTheRestOfTheFile)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    const QByteArray before = "; Lorvane settings\r\n\r\n[Waveform]\r\nColour = 12 ; keep\r\n\r\n"
                              "[LocalSystem]\r\nDataFormat=0.0\r\n; user note\r\n\r\n"
                              "[PGraph]\r\nSpeed=3\r\n";
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(before);
    }

    LocalSystemSettings settings;
    settings.defaultPath = "/data/logs";
    settings.dataPathMethod = 2;
    settings.autoLoadDBs = true;
    settings.maxDeviceLogNumber = 1;
    settings.tempLogRecSize = 800;
    settings.dataFormat = "0.000";
    settings.useCBEMACurve = false;
    settings.userPQCurveFile = "/curves/mine.ini";
    settings.useUserHalyxScaledFormats = true;
    ASSERT_TRUE(settings.write(file));

    // The data format line takes the writer's key form; the new keys follow the section's
    // last line, and every other byte stays.
    EXPECT_EQ(bytesOf(file),
              QByteArray("; Lorvane settings\r\n\r\n[Waveform]\r\nColour = 12 ; keep\r\n\r\n"
                         "[LocalSystem]\r\nDataformat=0.000\r\n; user note\r\n"
                         "DefaultPath=/data/logs\r\nDefaultMethod=UserSet\r\nAutoLoadDBs=Yes\r\n"
                         "SearchSubDirectories=No\r\nMaxDeviceLogNumber=1\r\n"
                         "TempLogRecSize=800\r\nShowHalyxLookUp=No\r\nUseCBEMACurve=No\r\n"
                         "UserPQCurveFile=/curves/mine.ini\r\nUseUserHalyxScaledFormats=Yes\r\n"
                         "\r\n[PGraph]\r\nSpeed=3\r\n"));

    LocalSystemSettings again;
    again.read(file, noUserSetting);
    EXPECT_EQ(again.defaultPath, "/data/logs");
    EXPECT_EQ(again.currentPath, "/data/logs");
    EXPECT_EQ(again.dataPathMethod, 2);
    EXPECT_TRUE(again.autoLoadDBs);
    EXPECT_EQ(again.maxDeviceLogNumber, 1);
    EXPECT_EQ(again.tempLogRecSize, 800);
    EXPECT_EQ(again.dataFormat, "0.000");
    EXPECT_FALSE(again.useCBEMACurve);
    EXPECT_EQ(again.userPQCurveFile, "/curves/mine.ini");
    EXPECT_TRUE(again.useUserHalyxScaledFormats);

    // Method 1 is written as "HalyxC"; a folder that is missing refuses the write.
    again.dataPathMethod = 1;
    ASSERT_TRUE(again.write(file));
    EXPECT_EQ(lorvane::ProfileFile(file).readString("LocalSystem", "DefaultMethod", ""), "HalyxC");
    EXPECT_FALSE(again.write(dir.filePath("missing/Lorvane.Ini")));
}
