// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpgradeStep.h"

#include "platform/SqlIdentifier.h"

namespace lorvane {

QString UpgradeStep::closingStatement(const QDateTime& now) const
{
    const QString version = QString::number(target, 'f', 1);
    const QString text =
        note.isEmpty() ? QStringLiteral("Database Updated to V%1 on %2")
                             .arg(version, now.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")))
                       : note;
    // The note is the program's own text, never a value from outside.
    return QStringLiteral("Update %1 Set [Version]=%2, [Note]='%3'")
        .arg(SqlIdentifier::quote(QStringLiteral("ID_Table")), version, text);
}

} // namespace lorvane
