// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartupPaths.h"

#include "ScopedEnvironment.h"
#include "TemporaryInstallation.h"
#include "app/LocalSystemSettings.h"
#include "platform/RegistryAccess.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::StartupPaths;
using lorvane::test::ScopedEnvironment;
using lorvane::test::TemporaryInstallation;

namespace {

const QString pathKey = QStringLiteral("HKEY_LOCAL_MACHINE\\software\\qlm_software\\path");

StartupPaths resolveAll(const QString& pathsFile, const QString& systemFolder)
{
    StartupPaths paths;
    paths.pathsFile = pathsFile;
    paths.resolveProgramFolders();
    paths.nameListDatabase = StartupPaths::locateNameList(pathsFile, systemFolder);
    paths.converterFolder = StartupPaths::locateConverterFolder(pathsFile, paths.userDataPath);
    paths.deriveFolders();
    return paths;
}

} // namespace

TEST(StartupPaths, PathsFileComesFromAnExistingNamedFileOrTheSystemFolder)
{
    TemporaryInstallation installation;
    const QString fallback = installation.pathsFile();
    const QString other = installation.root() + QStringLiteral("/elsewhere.ini");
    TemporaryInstallation::writeText(other, QString());

    EXPECT_EQ(StartupPaths::locatePathsFile(installation.systemFolder(), ""), fallback);
    EXPECT_EQ(StartupPaths::locatePathsFile(installation.systemFolder(), "   "), fallback);
    EXPECT_EQ(StartupPaths::locatePathsFile(installation.systemFolder(), "  " + other + " "),
              other);
    // Naming a file that does not exist is the same as naming none.
    EXPECT_EQ(StartupPaths::locatePathsFile(installation.systemFolder(), other + ".missing"),
              fallback);
    // A folder is no paths file either.
    EXPECT_EQ(StartupPaths::locatePathsFile(installation.systemFolder(), installation.root()),
              fallback);
}

TEST(StartupPaths, RegistryCounterpartReadsEnvironmentThenXdgFiles)
{
    QTemporaryDir home;
    QTemporaryDir system;
    ScopedEnvironment env;
    env.set("XDG_CONFIG_HOME", home.path());
    env.set("XDG_CONFIG_DIRS", system.path());
    env.unset("LORVANE_REG_SOFTWARE_INI_PATH");
    const lorvane::RegistryAccess registry;
    EXPECT_EQ(lorvane::RegistryAccess::environmentName("software_ini_path"),
              "LORVANE_REG_SOFTWARE_INI_PATH");
    EXPECT_EQ(lorvane::RegistryAccess::environmentName("Retrieved Logs Path"),
              "LORVANE_REG_RETRIEVED_LOGS_PATH");
    EXPECT_EQ(registry.readString(pathKey, "software_ini_path"), "");

    QDir(system.path()).mkpath("lorvane");
    TemporaryInstallation::writeText(
        system.filePath("lorvane/registry.ini"),
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\QLM_Software\\Path]\nsoftware_ini_path=/sys/paths.ini\n"
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext\\Default Paths]\n"
        "Retrieved Logs Path=/data/logs\n");
    EXPECT_EQ(registry.readString(pathKey, "SOFTWARE_INI_PATH"), "/sys/paths.ini");
    EXPECT_EQ(registry.readUserSetting("Tessera Ext", "Default Paths", "Retrieved Logs Path", "x"),
              "/data/logs");
    EXPECT_EQ(registry.readUserSetting("Tessera Ext", "Default Paths", "Other", "x"), "x");

    // The user's own file comes before the system's, the environment before both.
    QDir(home.path()).mkpath("lorvane");
    TemporaryInstallation::writeText(home.filePath("lorvane/registry.ini"),
                                     "[" + pathKey + "]\nsoftware_ini_path=/home/paths.ini\n");
    EXPECT_EQ(registry.readString(pathKey, "software_ini_path"), "/home/paths.ini");
    env.set("LORVANE_REG_SOFTWARE_INI_PATH", "/env/paths.ini");
    EXPECT_EQ(registry.readString(pathKey, "software_ini_path"), "/env/paths.ini");
}

TEST(StartupPaths, FoldersOfAFullInstallationWithWindowsSeparators)
{
    TemporaryInstallation installation;
    installation.writePathsFile(QStringLiteral("\\"));
    const StartupPaths paths = resolveAll(installation.pathsFile(), installation.systemFolder());

    EXPECT_EQ(paths.userDataPath, installation.root() + "/user");
    EXPECT_EQ(paths.progDataPath, installation.dataFolder());
    EXPECT_EQ(paths.progPath, installation.systemFolder());
    EXPECT_EQ(paths.converterFolder, installation.harvesterFolder() + "/");
    EXPECT_EQ(paths.nameListDatabase, installation.systemFolder() + "/QLMNameList.DB");
    const QString base = installation.dataFolder() + "/";
    EXPECT_EQ(paths.baseFolder, base);
    EXPECT_EQ(paths.resourceFolder, base + "Resource/");
    // The image folder takes the spelling the disk has.
    EXPECT_EQ(paths.imageFolder, base + "sysimage/");
    EXPECT_EQ(paths.scratchFolder, base + "TempQuery/");
    EXPECT_EQ(paths.logsFolder, base + "Logs/");
    EXPECT_EQ(paths.settingsFile, base + "Lorvane.Ini");
    EXPECT_EQ(paths.handCursorFile, base + "sysimage/Hand PT.Cur");
}

TEST(StartupPaths, WithoutSysimageEverythingMovesUnderTheConverterFolder)
{
    TemporaryInstallation installation;
    installation.writePathsFile();
    ASSERT_TRUE(QDir(installation.dataFolder() + "/sysimage").removeRecursively());
    QDir(installation.harvesterFolder()).mkpath("TempQuery");
    const StartupPaths paths = resolveAll(installation.pathsFile(), installation.systemFolder());
    const QString base = installation.harvesterFolder() + "/";
    EXPECT_EQ(paths.baseFolder, base);
    EXPECT_EQ(paths.resourceFolder, base + "Resource/");
    EXPECT_EQ(paths.imageFolder, base + "SysImage/");
    EXPECT_EQ(paths.scratchFolder, base + "TempQuery/");
    EXPECT_EQ(paths.settingsFile, base + "Lorvane.Ini");
}

TEST(StartupPaths, MissingValuesFallBackOnTheirDefaults)
{
    TemporaryInstallation installation;
    QTemporaryDir dataHome;
    ScopedEnvironment env;
    env.set("XDG_DATA_HOME", dataHome.path());

    // "Not Found" and an empty value both mean the system folder's dictionary; a Harvester
    // path falls back on UserDataPath.
    TemporaryInstallation::writeText(installation.pathsFile(),
                                     "[Data File Paths]\nQLMNameListdb=Not Found\n"
                                     "[QLM Lorvane]\nUserDataPath=" +
                                         installation.root() + "/user/\n");
    StartupPaths paths = resolveAll(installation.pathsFile(), installation.systemFolder());
    EXPECT_EQ(paths.nameListDatabase, installation.systemFolder() + "/QLMNameList.DB");
    EXPECT_EQ(paths.converterFolder, installation.root() + "/");
    EXPECT_EQ(paths.baseFolder, installation.root() + "/");

    // No paths file at all: no folders, and the scratch folder lies in the user's data.
    paths = resolveAll(installation.root() + "/none.ini", installation.systemFolder());
    EXPECT_EQ(paths.userDataPath, "");
    EXPECT_EQ(paths.progDataPath, "");
    EXPECT_EQ(paths.converterFolder, "");
    EXPECT_EQ(paths.baseFolder, "");
    EXPECT_EQ(paths.nameListDatabase, installation.systemFolder() + "/QLMNameList.DB");
    EXPECT_EQ(paths.scratchFolder, dataHome.path() + "/lorvane/TempQuery/");
    EXPECT_TRUE(QFileInfo(paths.scratchFolder).isDir());
}

TEST(LocalSystemSettings, DefaultsClampsAndDataPathMethods)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("Lorvane.Ini");
    const auto user = [](const QString& app, const QString& section, const QString& key,
                         const QString& def) {
        return app == "Tessera Ext" && section == "Default Paths" && key == "Retrieved Logs Path"
                   ? QStringLiteral("/retrieved")
                   : def;
    };
    lorvane::LocalSystemSettings settings;
    settings.read(file, user);
    EXPECT_EQ(settings.maxDeviceLogNumber, 2);
    EXPECT_EQ(settings.tempLogRecSize, 4500);
    EXPECT_EQ(settings.dataFormat, "0.00");
    EXPECT_TRUE(settings.useCBEMACurve);
    EXPECT_FALSE(settings.autoLoadDBs);
    EXPECT_EQ(settings.dataPathMethod, 0);

    TemporaryInstallation::writeText(
        file, "[LocalSystem]\nMaxDeviceLogNumber=5\nTempLogRecSize=99\nDataFormat=0.000000\n"
              "AutoLoadDBs=yes\nUseCBEMACurve=No\nDefaultMethod=halyxc\nDefaultPath=/mine\n");
    settings.read(file, user);
    EXPECT_EQ(settings.maxDeviceLogNumber, 2);
    EXPECT_EQ(settings.tempLogRecSize, 100);
    EXPECT_EQ(settings.dataFormat, "0.00");
    EXPECT_TRUE(settings.autoLoadDBs);
    EXPECT_FALSE(settings.useCBEMACurve);
    EXPECT_EQ(settings.dataPathMethod, 1);
    EXPECT_EQ(settings.currentPath, "/retrieved");
    EXPECT_EQ(settings.defaultPath, "/retrieved");

    TemporaryInstallation::writeText(
        file, "[LocalSystem]\nMaxDeviceLogNumber=0\nTempLogRecSize=50001\nDataFormat=0.0\n"
              "DefaultMethod=Other\nDefaultPath=/mine\n");
    settings.read(file, user);
    EXPECT_EQ(settings.maxDeviceLogNumber, 1);
    EXPECT_EQ(settings.tempLogRecSize, 50000);
    EXPECT_EQ(settings.dataFormat, "0.0");
    // An unknown method changes nothing: the path of method 1 stays.
    EXPECT_EQ(settings.dataPathMethod, 1);
    EXPECT_EQ(settings.currentPath, "/retrieved");

    TemporaryInstallation::writeText(file, "[LocalSystem]\nDefaultMethod=UserSet\n"
                                           "DefaultPath=/mine\nTempLogRecSize=lots\n");
    settings.read(file, user);
    EXPECT_EQ(settings.dataPathMethod, 2);
    EXPECT_EQ(settings.currentPath, "/mine");
    EXPECT_EQ(settings.tempLogRecSize, 100);
}
