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

} // namespace lorvane
