// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace lorvane {

/// Values that the sibling programs of the installation keep under a key path such as
/// "HKEY_LOCAL_MACHINE\software\qlm_software\path". A key path starts with the full name of its
/// root ("HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS",
/// "HKEY_CURRENT_CONFIG"), then the names of the keys below it, each after a `\`. Key paths and
/// value names are compared without regard to case; a key path with another root is refused.
///
/// On this system a value is looked up in this order:
///  1. the environment variable `LORVANE_REG_{VALUE}` (the value name in upper case, every
///     character other than a letter or digit turned into `_`), when it is set;
///  2. the file `lorvane/registry.ini` in the XDG config folders (`$XDG_CONFIG_HOME`, then each
///     of `$XDG_CONFIG_DIRS`), section = the full key path, key = the value name ("@" for the
///     key's default value); the first file that holds the value wins.
/// Every write goes to the user's file, `$XDG_CONFIG_HOME/lorvane/registry.ini`, whatever the
/// root: the system-wide files are not the user's to write, and the user's file is read first,
/// so a value written there shadows the system-wide one for this user.
///
/// Stored forms: a number is `dword:` and eight hex digits, binary data `hex:` and the bytes as
/// hex pairs separated by commas; anything else is a string. A string that would read as one of
/// those forms is written after the prefix `sz:`, and one with blanks at either end in quotes.
class RegistryAccess
{
public:
    enum class Type
    {
        String,
        Number,
        Binary
    };

    /// One stored value: its type and the field of that type.
    struct Value
    {
        Type type = Type::String;
        QString text;
        quint32 number = 0;
        QByteArray bytes;
    };

    /// Name of the environment variable that overrides `valueName`.
    static QString environmentName(const QString& valueName);

    /// `keyPath` with its root in upper case, a single `\` between key names and none at the
    /// ends; an empty string when the root is not one of the known roots.
    static QString normalizedKeyPath(const QString& keyPath);

    /// The file that writes go to.
    static QString userStoreFile();

    /// The value with its type; nothing when no source holds it or the key path is refused.
    std::optional<Value> read(const QString& keyPath, const QString& valueName) const;

    /// The string value, or an empty string when no source holds it or the value is a number
    /// or binary data.
    QString readString(const QString& keyPath, const QString& valueName) const;
    /// The number value (32 bits); nothing when missing or of another type.
    std::optional<quint32> readNumber(const QString& keyPath, const QString& valueName) const;
    /// The binary value; nothing when missing or of another type.
    std::optional<QByteArray> readBinary(const QString& keyPath, const QString& valueName) const;

    /// Writes a value into the user's file, creating the file and its folder when missing.
    /// False, with nothing written, when the key path is refused, the value name holds `=` or a
    /// line break, a string holds a line break, or the file cannot be written.
    bool writeString(const QString& keyPath, const QString& valueName, const QString& text);
    bool writeNumber(const QString& keyPath, const QString& valueName, quint32 number);
    bool writeBinary(const QString& keyPath, const QString& valueName, const QByteArray& bytes);

    /// Names of the keys right below `keyPath` in all files, each once, sorted without regard
    /// to case; a key holding only keys below it counts.
    QStringList subKeys(const QString& keyPath) const;
    /// Names of the values of `keyPath` in all files, each once, in file order ("@" for the
    /// default value).
    QStringList valueNames(const QString& keyPath) const;

    /// The key `keyPath` and every key below it as the text of a registry file: the header
    /// "REGEDIT4", then each key as "[full path]" followed by its values ("name"="text",
    /// "name"=dword:0000000a, "name"=hex:01,02, @ for the default value) and a blank line, keys
    /// in the order of `subKeys`, lines ending in "\r\n". Values are read as `read` reads them.
    /// An empty string when the key does not exist.
    QString exportText(const QString& keyPath) const;

    /// The key path of section `section` of application `application`'s per-user settings:
    /// "HKEY_CURRENT_USER\Software\{application}\{section}".
    static QString userSettingsKey(const QString& application, const QString& section);

    /// A value of the per-user settings of application `application` (section, key), kept
    /// under `userSettingsKey` and found the way `readString` finds it; `defaultValue` when no
    /// source holds it or it is empty.
    QString readUserSetting(const QString& application, const QString& section, const QString& key,
                            const QString& defaultValue) const;
    /// Writes one of those per-user settings; false as `writeString`.
    bool writeUserSetting(const QString& application, const QString& section, const QString& key,
                          const QString& text);

private:
    static QStringList storeFiles();
    bool write(const QString& keyPath, const QString& valueName, const QString& stored);
    void exportKey(const QString& keyPath, QString& text) const;
};

} // namespace lorvane
