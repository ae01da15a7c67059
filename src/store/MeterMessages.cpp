// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterMessages.h"

namespace lorvane {

QString MeterMessages::damaged(const QString& table, const QString& database)
{
    return QStringLiteral("This database is damaged. Table:  ") + table + QLatin1Char('\n') +
           QStringLiteral("Database: ") + database;
}

QString MeterMessages::readOnlyAttribute(const QString& name)
{
    return name + QStringLiteral(" file attribute is read-only.");
}

QString MeterMessages::fileMissing(const QString& path)
{
    return path + QStringLiteral(" has a length of zero or does not exist at the specified "
                                 "location");
}

QString MeterMessages::notADatabase(const QString& path)
{
    return QStringLiteral("This database is damaged.") + QLatin1Char('\n') +
           QStringLiteral("Database: ") + path;
}

QString MeterMessages::engineFailure(const QString& step, const QString& path,
                                     const QString& detail)
{
    return step + QStringLiteral(" - ") + path + QLatin1Char('\n') + detail;
}

} // namespace lorvane
