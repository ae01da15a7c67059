// SPDX-License-Identifier: GPL-3.0-or-later
#include "LogTree.h"

#include "platform/SqlIdentifier.h"
#include "platform/UserText.h"
#include "store/MeterDatabase.h"
#include "store/SchemaCatalog.h"

namespace lorvane {

QString LogTreeEntry::text() const
{
    return userText("300001", "From ") + firstStart + userText("300002", " to ") + lastEnd;
}

QList<LogTreeEntry> LogTree::read(MeterDatabase& meter)
{
    return meter.guarded(QStringLiteral("LogTree"), [&] {
        SqliteDatabase& db = meter.db();
        QList<LogTreeEntry> entries;
        const QStringList& tables = SchemaCatalog::masterTables();
        for (int kind = static_cast<int>(LogKind::Snapshots); kind < tables.size(); ++kind) {
            const QString& table = tables.at(kind);
            if (!db.tableExists(table))
                continue;
            SqlStatement rows = db.prepare(
                QStringLiteral("Select [StartDate/Time], [EndDate/Time], [Records] From %1 "
                               "Where [Records] > 0 Order By [StartDate/Time] ASC, "
                               "[EndDate/Time] ASC")
                    .arg(SqlIdentifier::quote(table)));
            LogTreeEntry entry;
            entry.logKind = kind;
            entry.label = SchemaCatalog::logDisplayNames().at(kind);
            bool first = true;
            while (rows.next()) {
                if (first)
                    entry.firstStart = rows.text(0);
                first = false;
                entry.lastEnd = rows.text(1);
                entry.records += rows.integer(2);
            }
            if (!first)
                entries.append(entry);
        }
        return entries;
    });
}

} // namespace lorvane
