// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayView.h"

#include "MomentSnapshot.h"
#include "RelayGrid.h"
#include "RelayLoader.h"
#include "SetupRecordViews.h"
#include "StatusView.h"
#include "platform/UserText.h"

namespace lorvane {

ViewResult RelayView::run(QueryContext& context)
{
    return StatusView::run(
        context, LogKind::Relays, RelayLoader::load,
        [&context](SqliteDatabase& db, const QueryNumbers& numbers, const SortState& sort) {
            return QList<GridTable>{
                RelayGrid::fill(db, numbers, sort), MomentSnapshot::load(context, numbers),
                SetupRecordViews::settingsGrid(db, numbers, QStringLiteral("RelayLogDataItem_"),
                                               userText("404061", "Show Relay Settings"))};
        });
}

} // namespace lorvane
