// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterMessages.h"

#include "platform/UserText.h"

namespace lorvane {

namespace {

QString damagedHead()
{
    return userText("200001", "This database is damaged.");
}

QString databaseLine(const QString& database)
{
    return userText("200003", "Database:") + QLatin1Char(' ') + database;
}

} // namespace

QString MeterMessages::damaged(const QString& table, const QString& database)
{
    return damagedHead() + QLatin1Char(' ') + userText("200002", "Table:") + QStringLiteral("  ") +
           table + QLatin1Char('\n') + databaseLine(database);
}

QString MeterMessages::damagedStamp(const QString& text, const QString& why)
{
    return userText("200044", "This database is damaged: the time stamp") + QStringLiteral(" \"") +
           text + QStringLiteral("\" ") +
           userText("200045", "is not a date and time of the form YYYY-MM-DD HH:MM:SS") +
           QStringLiteral(" (") + why + QStringLiteral(").");
}

QString MeterMessages::readOnlyAttribute(const QString& name)
{
    return name + QLatin1Char(' ') + userText("200004", "file attribute is read-only.");
}

QString MeterMessages::fileMissing(const QString& path)
{
    return path + QLatin1Char(' ') +
           userText("200005", "has a length of zero or does not exist at the specified location");
}

QString MeterMessages::notADatabase(const QString& path)
{
    return damagedHead() + QLatin1Char('\n') + databaseLine(path);
}

QString MeterMessages::engineFailure(const QString& step, const QString& path,
                                     const QString& detail)
{
    return step + QStringLiteral(" - ") + path + QLatin1Char('\n') + detail;
}

QString MeterMessages::cannotReadVersion()
{
    return userText("200010", "Cannot read current database version") + QLatin1Char('.') +
           QLatin1Char('\n') + userText("200011", "Program will end. Please try again") +
           QLatin1Char('.');
}

QString MeterMessages::invalidVersion(double version)
{
    return userText("200012", "Invalid database version") + QLatin1Char(' ') +
           versionText(version) + QLatin1Char(' ') + QLatin1Char('\n') +
           userText("200013", "Program will end") + QLatin1Char('.');
}

QString MeterMessages::olderThan(const QString& name, double version, const QString& limit)
{
    return userText("200014", "Program cannot open this database file.") + QLatin1Char('\n') +
           name + QLatin1Char('\n') + userText("200015", "Version") + QLatin1Char(' ') +
           versionText(version) + QLatin1Char('\n') + userText("200016", "is older than version ") +
           limit + QLatin1Char('.');
}

QString MeterMessages::cannotBeUpgraded(const QString& name, double version)
{
    return userText("200017", "Current database file:") + QLatin1Char('\n') + name +
           QLatin1Char('\n') + userText("200015", "Version") + QLatin1Char(' ') +
           versionText(version) + QLatin1Char('\n') +
           userText("200018", "cannot be upgraded.  Please start with a new file.");
}

QString MeterMessages::newerThanSystem(double systemVersion, const QString& systemNote,
                                       double selectedVersion, const QString& selectedNote)
{
    const QChar br = QLatin1Char('\n');
    return userText("200019", "The DB file you have selected is newer than your system`s DB") +
           QLatin1Char('.') + br +
           userText("200020", "You current software will not be able to open it") +
           QLatin1Char('.') + br + userText("200021", "Software upgrade may be required") +
           QLatin1Char('.') + br + userText("200022", "System DB") + QStringLiteral(",   v") +
           QString::number(systemVersion, 'f', 1) + QStringLiteral(", ") + systemNote + br +
           userText("200023", "Selected DB") + QStringLiteral(", v") +
           QString::number(selectedVersion, 'f', 1) + QStringLiteral(", ") + selectedNote;
}

QString MeterMessages::needsUpgrade(const QString& name, double version)
{
    return name + QLatin1Char(' ') + userText("200040", "is at version") + QLatin1Char(' ') +
           versionText(version) + QLatin1Char(' ') +
           userText("200041", "and must be upgraded before it can be read; clear its read-only "
                              "attribute to let the program upgrade it.");
}

QString MeterMessages::upgradeCancelled(const QString& name)
{
    return userText("200042", "The upgrade of") + QLatin1Char(' ') + name + QLatin1Char(' ') +
           userText("200043", "was cancelled; the file keeps its version.");
}

QString MeterMessages::updatingTo83()
{
    return userText("200024",
                    "Updating database to v8.3, please wait. This could take several minutes.");
}

QString MeterMessages::versionText(double version)
{
    return QString::number(version, 'g', 10);
}

} // namespace lorvane
