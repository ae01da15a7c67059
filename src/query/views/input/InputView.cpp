// SPDX-License-Identifier: GPL-3.0-or-later
#include "InputView.h"

#include "InputGrid.h"
#include "InputLoader.h"
#include "platform/UserText.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "query/views/setup/SetupRecordViews.h"
#include "query/views/snapshot/MomentSnapshot.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult InputView::run(QueryContext& context)
{
    return StatusView::run(context, LogKind::Inputs,
                           StatusView::withMomentSnapshot(InputLoader::load), &InputView::grids);
}

QList<GridTable> InputView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    SqliteDatabase& db = context.scratch->database();
    return {InputGrid::fill(db, numbers, StatusView::sortState(context, LogKind::Inputs)),
            MomentSnapshot::fill(context, numbers),
            SetupRecordViews::settingsGrid(db, numbers, QStringLiteral("InputLogDataItem_"),
                                           userText("404060", "Show Input Settings"))};
}

} // namespace lorvane
