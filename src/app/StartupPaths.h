// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The files and folders of the installation, found once at start and kept for the whole run.
/// Folders are local paths (separator `/`); every folder except the three keys of the paths
/// file ends in `/`. A folder that could not be found is empty, and the folders built on it
/// are then relative names.
struct StartupPaths
{
    static constexpr const char* pathsFileName = "QLM Software Path.ini";
    static constexpr const char* nameListFileName = "QLMNameList.DB";

    QString pathsFile;
    QString userDataPath; ///< no trailing separator
    QString progDataPath; ///< no trailing separator
    QString progPath;     ///< no trailing separator
    QString nameListDatabase;
    QString converterFolder;
    QString baseFolder;
    QString resourceFolder;
    QString imageFolder;
    QString scratchFolder;
    QString logsFolder;
    QString handCursorFile;
    QString settingsFile;

    /// The paths file: the file that `registryValue` names (blanks trimmed) when that file
    /// exists, otherwise "{systemFolder}/QLM Software Path.ini".
    static QString locatePathsFile(const QString& systemFolder, const QString& registryValue);

    /// Reads `UserDataPath`, `ProgDataPath` and `ProgPath` of "QLM Lorvane" from `pathsFile`;
    /// a missing key leaves its field empty.
    void resolveProgramFolders();

    /// The dictionary database: "{value}/QLMNameList.DB" for the value of key "QLMNameListdb" of
    /// section "Data File Paths"; the system folder instead when the value is missing, empty or
    /// "Not Found".
    static QString locateNameList(const QString& pathsFile, const QString& systemFolder);

    /// The converter's folder: key `ProgPath` of section "QLM Harvester" (default
    /// `userDataPath`) up to and including its last separator; empty when it has none.
    static QString locateConverterFolder(const QString& pathsFile, const QString& userDataPath);

    /// Sets the base folder (`progDataPath` when it has a "sysimage" sub-folder that can be
    /// entered, otherwise the converter folder) and every folder and file derived from it.
    /// The scratch folder is the base folder's "TempQuery/" when that folder exists and can be
    /// written; otherwise it is "lorvane/TempQuery/" under the user's data folder
    /// (`$XDG_DATA_HOME`), created here, so that a system-wide installation still works.
    /// The process's current folder is never changed.
    void deriveFolders();

    /// Folder of the program's pictures: `imageFolder` once the folders are derived, else the
    /// "sysimage" folder of the program data.
    QString pictureFolder() const
    {
        return imageFolder.isEmpty() ? progDataPath + QStringLiteral("/sysimage") : imageFolder;
    }

    /// The scratch folder under the user's data folder, used when the installation's own
    /// cannot be written.
    static QString userScratchFolder();
};

} // namespace lorvane
