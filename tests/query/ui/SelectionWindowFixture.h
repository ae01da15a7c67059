// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/RunContext.h"
#include "app/ui/AllLogsFrm.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserMessages.h"
#include "query/SelectionSimMeters.h"
#include "store/TempQueryDatabase.h"
#include "support/TestEnvironment.h"
#include "support/TestMeters.h"

#include <QTreeWidget>
#include <memory>

namespace lorvane::test {

/// A run context as start-up leaves it (the build's dictionary, a scratch database, a settings
/// file in a temporary folder), simulated meters to open, and the messages the user is shown.
struct SelectionWindowFixture
{
    SelectionSimMeters sim;
    RunContext context;
    RecordedMessages messages;
    ScopedUserMessages scopedMessages{messages};

    SelectionWindowFixture()
    {
        context.scratch = scratchDatabase(sim.dir(), 4646);
        context.dictionary = std::make_unique<SqliteDatabase>(programPath("QLMNameList.DB"),
                                                              SqliteDatabase::Mode::ReadOnly);
        context.deviceTypes.loadDeviceTypes(*context.dictionary);
        context.paths.settingsFile = sim.dir().filePath(QStringLiteral("Lorvane.Ini"));
        context.shortDateFormat = QStringLiteral("MM/dd/yyyy");
        context.timeFormat = QStringLiteral("HH:mm");
    }

    /// The node of `key` in the window's tree, or null.
    static QTreeWidgetItem* node(const AllLogsFrm& window, const QString& key)
    {
        const auto* tree = window.findChild<QTreeWidget*>(QStringLiteral("TreeView1"));
        QList<QTreeWidgetItem*> pending;
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            pending.append(tree->topLevelItem(i));
        while (!pending.isEmpty()) {
            QTreeWidgetItem* item = pending.takeFirst();
            if (item->data(0, Qt::UserRole).toString() == key)
                return item;
            for (int c = 0; c < item->childCount(); ++c)
                pending.append(item->child(c));
        }
        return nullptr;
    }
};

} // namespace lorvane::test
