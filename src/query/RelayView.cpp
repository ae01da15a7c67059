// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayView.h"

#include "MomentSnapshot.h"
#include "QueryContext.h"
#include "RelayGrid.h"
#include "RelayLoader.h"
#include "SetupRecordViews.h"
#include "StatusView.h"
#include "platform/UserText.h"
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
