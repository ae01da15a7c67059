// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SystemProperties.h"

#include "TemporaryInstallation.h"
#include "platform/ProfileFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::LocalSystemSettings;
using lorvane::ProfileFile;
using lorvane::SystemProperties;
using lorvane::test::TemporaryInstallation;

namespace {

/// The sibling program's settings: only its "Retrieved Logs Path" is known.
struct SiblingSettings
{
    QString retrieved = QStringLiteral("/sibling/retrieved");
    mutable int reads = 0;

    LocalSystemSettings::UserSettingReader reader() const
    {
        return [this](const QString& app, const QString& section, const QString& key,
                      const QString& def) {
            ++reads;
            const bool known = app == "Tessera Ext" && section == "Default Paths" &&
                               key == "Retrieved Logs Path" && !retrieved.isEmpty();
            return known ? retrieved : def;
        };
    }
};

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(SystemProperties, ApplyWritesEveryKeyAndReadsTheSectionAgain)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    TemporaryInstallation::writeText(file, "[LocalSystem]\nDefaultMethod=UserSet\n"
                                           "DefaultPath=/mine\nMaxDeviceLogNumber=1\n");
    SiblingSettings sibling;
    LocalSystemSettings settings;
    settings.read(file, sibling.reader());

    SystemProperties properties(settings, file, sibling.reader());
    EXPECT_FALSE(properties.useTesseraDefault());
    EXPECT_EQ(properties.currentDataPath(), "/mine");
    EXPECT_EQ(properties.maxDevices, "1");
    EXPECT_EQ(properties.maxDataPoints, "4500");
    EXPECT_EQ(properties.dataFormat, "0.00");
    EXPECT_TRUE(properties.useOldCBEMACurve);

    properties.loadDatabaseOnStartup = true;
    properties.autoSearchAdditionalFolders = true;
    properties.showLookupData = true;
    properties.useOldCBEMACurve = false;
    properties.useUserDefinedFormats = true;
    properties.defaultDataPath = "/typed";
    properties.maxDevices = "7";
    properties.maxDataPoints = "12000";
    properties.dataFormat = "0.0000";
    properties.pqCurveFile = "/curves/line.Ini";
    ASSERT_TRUE(properties.apply());
    EXPECT_EQ(properties.errorMessage(), "");

    const ProfileFile profile(file);
    const auto key = [&](const char* name) { return profile.readString("LocalSystem", name, "?"); };
    EXPECT_EQ(key("AutoLoadDBs"), "Yes");
    EXPECT_EQ(key("SearchSubDirectories"), "Yes");
    EXPECT_EQ(key("ShowHalyxLookUp"), "Yes");
    EXPECT_EQ(key("UseCBEMACurve"), "No");
    EXPECT_EQ(key("UseUserHalyxScaledFormats"), "Yes");
    EXPECT_EQ(key("DefaultPath"), "/typed");
    EXPECT_EQ(key("DefaultMethod"), "UserSet");
    EXPECT_EQ(key("MaxDeviceLogNumber"), "2");
    EXPECT_EQ(key("TempLogRecSize"), "12000");
    EXPECT_EQ(key("Dataformat"), "0.0000");
    EXPECT_EQ(key("UserPQCurveFile"), "/curves/line.Ini");

    // The run-wide record and the fields now hold what the start-up reader makes of the file.
    EXPECT_EQ(settings.currentPath, "/typed");
    EXPECT_EQ(settings.maxDeviceLogNumber, 2);
    EXPECT_EQ(settings.tempLogRecSize, 12000);
    EXPECT_TRUE(settings.autoLoadDBs);
    EXPECT_EQ(properties.maxDevices, "2");
    EXPECT_EQ(properties.currentMaxDevices(), 2);
    EXPECT_EQ(properties.currentDataPath(), "/typed");

    // Text that is no number and an unknown format are kept to their bounds and "0.00".
    properties.maxDataPoints = "many";
    properties.dataFormat = "#,##0";
    ASSERT_TRUE(properties.apply());
    EXPECT_EQ(settings.tempLogRecSize, 100);
    EXPECT_EQ(properties.maxDataPoints, "100");
    EXPECT_EQ(settings.dataFormat, "0.00");
}

TEST(SystemProperties, TesseraDefaultShowsTheRetrievedPathAndBecomesMethodOne)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    SiblingSettings sibling;
    LocalSystemSettings settings;
    settings.read(file, sibling.reader());
    EXPECT_EQ(settings.dataPathMethod, 0);

    SystemProperties properties(settings, file, sibling.reader());
    properties.defaultDataPath = "/typed";
    properties.setUseTesseraDefault(true);
    EXPECT_EQ(properties.currentDataPath(), "/sibling/retrieved");
    properties.setUseTesseraDefault(false);
    EXPECT_EQ(properties.currentDataPath(), "/typed");
    properties.setUseTesseraDefault(true);
    ASSERT_TRUE(properties.apply());
    EXPECT_EQ(ProfileFile(file).readString("LocalSystem", "DefaultMethod", ""), "HalyxC");
    EXPECT_EQ(settings.dataPathMethod, 1);
    EXPECT_EQ(settings.currentPath, "/sibling/retrieved");
    // Method 1 makes the sibling's path the default path as well.
    EXPECT_EQ(properties.defaultDataPath, "/sibling/retrieved");

    // Without a retrieved path the run-wide current path stays.
    sibling.retrieved.clear();
    properties.setUseTesseraDefault(true);
    EXPECT_EQ(properties.currentDataPath(), "/sibling/retrieved");
}

TEST(SystemProperties, CancelWritesNothingAndAFailedApplyLosesNothing)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    TemporaryInstallation::writeText(file, "[LocalSystem]\nTempLogRecSize=700\n");
    SiblingSettings sibling;
    LocalSystemSettings settings;
    settings.read(file, sibling.reader());
    {
        SystemProperties properties(settings, file, sibling.reader());
        properties.maxDataPoints = "9000";
        properties.setUseTesseraDefault(true);
    }
    EXPECT_EQ(bytesOf(file), "[LocalSystem]\nTempLogRecSize=700\n");
    EXPECT_EQ(settings.tempLogRecSize, 700);

    // The settings file's folder is gone: the fields keep what was typed.
    const QString lost = dir.filePath("gone/Lorvane.Ini");
    SystemProperties properties(settings, lost, sibling.reader());
    properties.maxDataPoints = "9000";
    EXPECT_FALSE(properties.apply());
    EXPECT_TRUE(properties.errorMessage().contains("gone"))
        << properties.errorMessage().toStdString();
    EXPECT_EQ(properties.maxDataPoints, "9000");
    EXPECT_EQ(settings.tempLogRecSize, 700);
}
