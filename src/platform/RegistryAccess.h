// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// String values that the sibling programs of the installation keep under a key path such as
/// "HKEY_LOCAL_MACHINE\software\qlm_software\path". On this system a value is looked up in
/// this order:
///  1. the environment variable `LORVANE_REG_{VALUE}` (the value name in upper case, every
///     character other than a letter or digit turned into `_`), when it is set;
///  2. the file `lorvane/registry.ini` in the XDG config folders (`$XDG_CONFIG_HOME`, then each
///     of `$XDG_CONFIG_DIRS`), section = the full key path, key = the value name; the first
///     file that holds the value wins.
/// Key paths and value names are compared without regard to case.
class RegistryAccess
{
public:
    /// Name of the environment variable that overrides `valueName`.
    static QString environmentName(const QString& valueName);

    /// The value, or an empty string when no source holds it.
    QString readString(const QString& keyPath, const QString& valueName) const;

    /// A value of the per-user settings of application `application` (section, key), kept
    /// under the key path "HKEY_CURRENT_USER\Software\{application}\{section}" and found the
    /// way `readString` finds it; `defaultValue` when no source holds it.
    QString readUserSetting(const QString& application, const QString& section, const QString& key,
                            const QString& defaultValue) const;
};

} // namespace lorvane
