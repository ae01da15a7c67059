// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartupSequence.h"

#include "BuildInfo.h"
#include "RecordingStartupHost.h"
#include "ScopedEnvironment.h"
#include "TemporaryInstallation.h"
#include "platform/ProfileFile.h"
#include "platform/SqliteDatabase.h"
#include "store/TempQueryDatabase.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using lorvane::RunContext;
using lorvane::StartupSequence;
using lorvane::test::RecordingStartupHost;
using lorvane::test::ScopedEnvironment;
using lorvane::test::TemporaryInstallation;

namespace {

const QString pathKey = QStringLiteral("HKEY_LOCAL_MACHINE\\software\\qlm_software\\path");

QString expectedTitle(qint64 pid)
{
    return QStringLiteral("Lorvane (v%1.%2.%3, PID=%4)")
        .arg(lorvane::buildinfo::versionMajor)
        .arg(lorvane::buildinfo::versionMinor)
        .arg(lorvane::buildinfo::versionPatch)
        .arg(pid);
}

} // namespace

TEST(StartupSequence, RunsItsStepsInOrderOnATemporaryInstallation)
{
    TemporaryInstallation installation;
    // The paths file lies outside the system folder and is named through the registry.
    installation.writePathsFile();
    const QString namedPaths = installation.root() + "/named.ini";
    ASSERT_TRUE(QFile::rename(installation.pathsFile(), namedPaths));
    lorvane::ProfileFile(installation.dataFolder() + "/Lorvane.Ini")
        .writeString("LocalSystem", "TempLogRecSize", "700");

    RecordingStartupHost host;
    host.system = installation.systemFolder();
    host.registry[pathKey + "|software_ini_path"] = " " + namedPaths + " ";
    bool checkedAtLoad = false;
    host.onLoadMainFrame = [&](RunContext& context) {
        // Everything the frame relies on is in place when it loads.
        checkedAtLoad = true;
        ASSERT_TRUE(context.scratch);
        EXPECT_TRUE(QFileInfo::exists(context.scratch->path()));
        EXPECT_TRUE(context.scratch->path().contains("_PID_4242.TempQuery"));
        ASSERT_TRUE(context.dictionary);
        EXPECT_EQ(context.settings.tempLogRecSize, 700);
        EXPECT_EQ(context.commandLine, "  ");
        EXPECT_TRUE(context.twelveFixedPoints[0].dataId == 20617 &&
                    context.sixFixedPoints[5].dataId == 27406);
        // Fixed points are named once at start; the look-up tables are in memory, and the
        // one this dictionary lacks stays empty without stopping start-up.
        EXPECT_EQ(context.twelveFixedPoints[0].label, "Voltage Van");
        EXPECT_EQ(context.sixFixedPoints[5].label, "N/A 27406");
        EXPECT_EQ(context.deviceScaledFormats.entries().size(), 1u);
        EXPECT_TRUE(context.deviceDataLookUp.isEmpty());
    };

    RunContext context;
    StartupSequence startup(host, context);
    ASSERT_EQ(startup.run("  "), StartupSequence::Outcome::Running);
    EXPECT_TRUE(checkedAtLoad);
    EXPECT_EQ(host.calls,
              QStringList({"userSetting LookupFile", "processId", "systemFolder",
                           "registry software_ini_path", "loadMainFrame", "showSelectionWindow"}));

    EXPECT_EQ(context.title, expectedTitle(4242));
    EXPECT_EQ(context.paths.pathsFile, namedPaths);
    EXPECT_EQ(context.paths.baseFolder, installation.dataFolder() + "/");
    EXPECT_TRUE(context.templateFound);
    // The template gained its missing column and is read-only again.
    EXPECT_TRUE(lorvane::TableHasField(installation.dataFolder() + "/Resource/LorvaneTempQuery.DB",
                                       "PQTestLogsDetail", "NominalVoltage"));
    // Checked on the permission bits: the tests may run as a user who may write anything.
    EXPECT_FALSE(QFile::permissions(installation.dataFolder() + "/Resource/LorvaneTempQuery.DB") &
                 QFileDevice::WriteOwner);
    EXPECT_EQ(context.deviceTypes.size(), 6);
    EXPECT_EQ(context.deviceTypes.entry(5).name, "Split Log Meter");
    EXPECT_TRUE(context.deviceTypes.entry(5).inUse);
    EXPECT_EQ(context.deviceTypes.entry(3).name, "UnKonw_3");
    EXPECT_FALSE(context.deviceTypes.entry(3).inUse);
    // The technician flag was missing: written as "0", and the mode stays off.
    EXPECT_EQ(lorvane::ProfileFile(namedPaths).readString("QLM Tessera Ext", "Techmode", ""), "0");
    EXPECT_FALSE(context.technicianMode);
    EXPECT_EQ(context.headerColour.blue, 174);

    const QString scratchFile = context.scratch->path();
    context.shutDown();
    EXPECT_FALSE(QFileInfo::exists(scratchFile));
    EXPECT_FALSE(context.dictionary);
    context.shutDown();
}

TEST(StartupSequence, TwoCopiesHaveTheirOwnTitlesAndScratchFiles)
{
    TemporaryInstallation installation;
    installation.writePathsFile();
    lorvane::ProfileFile(installation.pathsFile()).writeString("QLM Tessera Ext", "Techmode", "2");
    RecordingStartupHost first;
    RecordingStartupHost second;
    first.system = second.system = installation.systemFolder();
    second.pid = 4343;
    RunContext one;
    RunContext two;
    ASSERT_EQ(StartupSequence(first, one).run(""), StartupSequence::Outcome::Running);
    ASSERT_EQ(StartupSequence(second, two).run("LOGID:2 /data/m.DB"),
              StartupSequence::Outcome::Running);
    EXPECT_EQ(one.title, expectedTitle(4242));
    EXPECT_EQ(two.title, expectedTitle(4343));
    EXPECT_TRUE(one.technicianMode);
    EXPECT_EQ(two.commandLine, "LOGID:2 /data/m.DB");
    ASSERT_TRUE(one.scratch && two.scratch);
    EXPECT_NE(one.scratch->path(), two.scratch->path());
    EXPECT_EQ(installation.scratchFiles().size(), 2);

    // The second copy's clean-up leaves the first one's live file alone.
    EXPECT_EQ(lorvane::TempQueryDatabase::removeStaleFiles(installation.scratchFolder()), 0);
    two.shutDown();
    EXPECT_EQ(installation.scratchFiles().size(), 1);
    one.shutDown();
    EXPECT_TRUE(installation.scratchFiles().isEmpty());
}

TEST(StartupSequence, UnreadableDictionaryBeepsFourTimesAndShowsNoWindow)
{
    using Dictionary = TemporaryInstallation::Dictionary;
    for (const Dictionary kind :
         {Dictionary::Damaged, Dictionary::WithoutDevices, Dictionary::Missing}) {
        TemporaryInstallation installation(kind);
        installation.writePathsFile();
        RecordingStartupHost host;
        host.system = installation.systemFolder();
        RunContext context;
        EXPECT_EQ(StartupSequence(host, context).run(""),
                  StartupSequence::Outcome::StoppedByDictionary);
        EXPECT_EQ(host.calls, QStringList({"userSetting LookupFile", "processId", "systemFolder",
                                           "registry software_ini_path", "beep", "wait 300", "beep",
                                           "wait 300", "beep", "wait 500", "beep"}))
            << static_cast<int>(kind);
    }
}

TEST(StartupSequence, MissingTemplateAndPathsFileStillStart)
{
    TemporaryInstallation installation;
    QTemporaryDir dataHome;
    ScopedEnvironment env;
    env.set("XDG_DATA_HOME", dataHome.path());
    ASSERT_TRUE(QFile::remove(installation.dataFolder() + "/Resource/LorvaneTempQuery.DB"));
    RecordingStartupHost host;
    host.system = installation.systemFolder();
    RunContext context;
    // No paths file: the dictionary is found in the system folder and start-up goes on
    // without a scratch database.
    EXPECT_EQ(StartupSequence(host, context).run(""), StartupSequence::Outcome::Running);
    EXPECT_FALSE(context.templateFound);
    EXPECT_FALSE(context.scratch);
    EXPECT_EQ(context.paths.baseFolder, "");
    EXPECT_EQ(context.settings.maxDeviceLogNumber, 2);
    context.shutDown();
}
