// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartupPaths.h"

#include "FolderResolver.h"
#include "platform/ProfileFile.h"
#include "platform/StoredPath.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace lorvane {

namespace {

QString folderOf(const QString& path)
{
    return path.isEmpty() || path.endsWith(u'/') ? path : path + u'/';
}

QString subFolder(const QString& base, const QString& name)
{
    return folderOf(StoredPath::child(base, name));
}

/// Whether a folder could be made the current folder: it exists and may be searched.
bool canEnter(const QString& folder)
{
    const QFileInfo info(folder);
    return info.isDir() && info.isExecutable();
}

bool canWriteInto(const QString& folder)
{
    const QFileInfo info(folder);
    return info.isDir() && info.isWritable() && info.isExecutable();
}

} // namespace

QString StartupPaths::locatePathsFile(const QString& systemFolder, const QString& registryValue)
{
    const QString named = StoredPath::toLocal(registryValue.trimmed());
    if (!named.isEmpty() && QFileInfo(named).isFile())
        return named;
    return StoredPath::child(systemFolder, QString::fromLatin1(pathsFileName));
}

void StartupPaths::resolveProgramFolders()
{
    const FolderResolver resolver(pathsFile);
    userDataPath = StoredPath::toLocal(
        resolver.resolve(FolderResolver::Lorvane, FolderResolver::UserDataPath, true));
    progDataPath = StoredPath::toLocal(
        resolver.resolve(FolderResolver::Lorvane, FolderResolver::ProgDataPath, true));
    progPath = StoredPath::toLocal(
        resolver.resolve(FolderResolver::Lorvane, FolderResolver::ProgPath, true));
}

QString StartupPaths::locateNameList(const QString& pathsFile, const QString& systemFolder)
{
    const QString value = ProfileFile(pathsFile).readString(
        QStringLiteral("Data File Paths"), QStringLiteral("QLMNameListdb"),
        QStringLiteral("Not Found"), FolderResolver::bufferSize);
    const QString folder =
        (value.isEmpty() || value == QLatin1String("Not Found")) ? systemFolder : value;
    return StoredPath::child(folder, QString::fromLatin1(nameListFileName));
}

QString StartupPaths::locateConverterFolder(const QString& pathsFile, const QString& userDataPath)
{
    const QString value = ProfileFile(pathsFile).readString(
        QStringLiteral("QLM Harvester"), QStringLiteral("ProgPath"), userDataPath, 256);
    return StoredPath::toLocal(value.left(StoredPath::lastSeparator(value) + 1));
}

void StartupPaths::deriveFolders()
{
    const bool ownData = !progDataPath.isEmpty() &&
                         canEnter(StoredPath::child(progDataPath, QStringLiteral("sysimage")));
    baseFolder = ownData ? folderOf(progDataPath) : converterFolder;
    resourceFolder = subFolder(baseFolder, QStringLiteral("Resource"));
    imageFolder = subFolder(baseFolder, QStringLiteral("SysImage"));
    logsFolder = subFolder(baseFolder, QStringLiteral("Logs"));
    handCursorFile = StoredPath::child(imageFolder, QStringLiteral("Hand PT.Cur"));
    settingsFile = StoredPath::child(baseFolder, QStringLiteral("Lorvane.Ini"));

    scratchFolder = subFolder(baseFolder, QStringLiteral("TempQuery"));
    if (!canWriteInto(scratchFolder)) {
        scratchFolder = userScratchFolder();
        QDir().mkpath(scratchFolder);
    }
}

QString StartupPaths::userScratchFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/lorvane/TempQuery/");
}

} // namespace lorvane
