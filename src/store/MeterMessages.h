// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The texts the user is shown about a meter file, composed in one place from their parts.
class MeterMessages
{
public:
    /// "This database is damaged. Table:  {table}\nDatabase: {database}"
    static QString damaged(const QString& table, const QString& database);
    /// "This database is damaged: the time stamp "{text}" is not a date and time of the form
    /// YYYY-MM-DD HH:MM:SS ({why})."
    static QString damagedStamp(const QString& text, const QString& why);
    /// "{name} file attribute is read-only."
    static QString readOnlyAttribute(const QString& name);
    static QString fileMissing(const QString& path);
    static QString notADatabase(const QString& path);
    /// "Cannot read current database version.\nProgram will end. Please try again."
    static QString cannotReadVersion();
    /// "Invalid database version {version} \nProgram will end."
    static QString invalidVersion(double version);
    /// "Program cannot open this database file.\n{name}\nVersion {version}\nis older than
    /// version {limit}." (limit as "7.5" or "7.6").
    static QString olderThan(const QString& name, double version, const QString& limit);
    /// "Current database file:\n{name}\nVersion {version}\ncannot be upgraded.  Please start
    /// with a new file."
    static QString cannotBeUpgraded(const QString& name, double version);
    /// The five lines of a meter file newer than the scratch database; versions as "0.0".
    static QString newerThanSystem(double systemVersion, const QString& systemNote,
                                   double selectedVersion, const QString& selectedNote);
    /// "{name} is at version {version} and must be upgraded before it can be read; clear its
    /// read-only attribute to let the program upgrade it."
    static QString needsUpgrade(const QString& name, double version);
    /// "The upgrade of {name} was cancelled; the file keeps its version."
    static QString upgradeCancelled(const QString& name);
    /// The label text while the 8.3 step walks the hour tables.
    static QString updatingTo83();
    /// A version as the messages show it: shortest form ("7.8", "7.55", "-1").
    static QString versionText(double version);
    /// The general handler's report of an engine failure: step, path and the engine's words.
    static QString engineFailure(const QString& step, const QString& path, const QString& detail);
};

} // namespace lorvane
