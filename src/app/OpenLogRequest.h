// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// A command text that a second copy or a sibling program sends to the running viewer:
/// a verb, a blank and the rest. Only "OPENLOG {path}" does something.
struct OpenLogRequest
{
    /// The verb in upper case; empty for an empty command.
    QString verb;
    /// The database path of an "OPENLOG" command; empty for any other verb.
    QString path;

    /// Splits `command` at its first blank; the verb is compared in upper case.
    static OpenLogRequest parse(const QString& command);
    /// "OPENLOG" with a path that is not empty.
    bool opensLog() const { return !path.isEmpty(); }
    /// The command text that asks a running copy to open `path`.
    static QString command(const QString& path);
};

} // namespace lorvane
