// SPDX-License-Identifier: GPL-3.0-or-later
#include "IdTable.h"

#include "platform/SqliteDatabase.h"

namespace lorvane {

double IdTable::version(SqliteDatabase& db)
{
    const QVariant value = db.scalar(QStringLiteral("SELECT [Version] FROM [ID_Table] LIMIT 1"));
    return value.isValid() && !value.isNull() ? value.toDouble() : -1.0;
}

QString IdTable::note(SqliteDatabase& db)
{
    return db.scalar(QStringLiteral("SELECT [Note] FROM [ID_Table] LIMIT 1")).toString();
}

} // namespace lorvane
