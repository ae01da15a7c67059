// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// A command text that a second copy or a sibling program sends to the running viewer:
/// a verb, a blank and the rest. "OPENLOG {path}" opens a database; "COMMANDLINE {text}"
/// hands over a whole command line, which the running copy applies as its own.
struct OpenLogRequest
{
    /// The verb in upper case; empty for an empty command.
    QString verb;
    /// The database path of an "OPENLOG" command; empty for any other verb.
    QString path;
    /// The command line of a "COMMANDLINE" command; empty for any other verb.
    QString commandLine;

    /// Splits `command` at its first blank; the verb is compared in upper case.
    static OpenLogRequest parse(const QString& command);
    /// "OPENLOG" with a path that is not empty.
    bool opensLog() const { return !path.isEmpty(); }
    /// The command text that asks a running copy to open `path`.
    static QString command(const QString& path);
    /// The command text that hands a whole command line to a running copy.
    static QString commandLineRequest(const QString& commandLine);
};

} // namespace lorvane
