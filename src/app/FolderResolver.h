// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Reads the folders of the programs of one installation from the paths file
/// ("QLM Software Path.ini"): one section per program, keys `UserDataPath`, `ProgDataPath`
/// and `ProgPath`.
class FolderResolver
{
public:
    /// Programs of the installation; 4 to 8 are further sibling tools that this program never
    /// asks for.
    enum Program
    {
        TesseraExt = 1,
        Lorvane = 2,
        Harvester = 3
    };
    enum Key
    {
        UserDataPath = 1,
        ProgDataPath = 2,
        ProgPath = 3
    };

    /// Default of the profile read that tells a missing key.
    static constexpr const char* notFound = "NOT:FOUND:";
    /// Buffer of the profile read, in characters.
    static constexpr int bufferSize = 260;

    /// The raw answer of one look-up: the value, or the "::Path Not Found::" text with a
    /// length of 0 that tells the caller to use nothing.
    struct Lookup
    {
        QString text;
        int length = 0;
    };

    explicit FolderResolver(QString pathsFile);

    /// Section name of a program ("QLM Tessera Ext", "QLM Lorvane", "QLM Harvester"); empty
    /// for any other number.
    static QString sectionName(int program);
    /// Key name of a key number ("UserDataPath", "ProgDataPath", "ProgPath"); empty otherwise.
    static QString keyName(int key);

    /// Reads `key` of `section` from `file`. A missing key gives
    /// "::Path Not Found::  Section = {section}\tkey = {key}\tfile = {file}" and length 0.
    static Lookup lookup(const QString& section, const QString& key, const QString& file);

    /// The path of `key` for `program` from `fileName` (the resolver's paths file when empty);
    /// an empty string when the key, section or file is missing or the numbers are unknown.
    /// A folder loses a trailing separator when the text is at least 4 characters long (so
    /// "C:\" stays); a value that is not declared a folder and ends in ".exe" (any case) loses
    /// its file name, otherwise the same trailing separator rule applies. Separators may be
    /// `\` or `/`; the text is returned as stored.
    QString resolve(int program, int key, bool isFolder, const QString& fileName = {}) const;

    const QString& pathsFile() const { return m_pathsFile; }

private:
    QString m_pathsFile;
};

} // namespace lorvane
