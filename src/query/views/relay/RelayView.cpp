// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayView.h"

#include "RelayGrid.h"
#include "RelayLoader.h"
#include "platform/UserText.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "query/views/setup/SetupRecordViews.h"
#include "query/views/snapshot/MomentSnapshot.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult RelayView::run(QueryContext& context)
{
    return StatusView::run(context, LogKind::Relays,
                           StatusView::withMomentSnapshot(RelayLoader::load), &RelayView::grids);
}

QList<GridTable> RelayView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    SqliteDatabase& db = context.scratch->database();
    return {RelayGrid::fill(db, numbers, StatusView::sortState(context, LogKind::Relays)),
            MomentSnapshot::fill(context, numbers),
            SetupRecordViews::settingsGrid(db, numbers, QStringLiteral("RelayLogDataItem_"),
                                           userText("404061", "Show Relay Settings"))};
}

} // namespace lorvane
