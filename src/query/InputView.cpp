// SPDX-License-Identifier: GPL-3.0-or-later
#include "InputView.h"

#include "InputGrid.h"
#include "InputLoader.h"
#include "MomentSnapshot.h"
#include "SetupRecordViews.h"
#include "StatusView.h"
#include "platform/UserText.h"

namespace lorvane {

ViewResult InputView::run(QueryContext& context)
{
    return StatusView::run(
        context, LogKind::Inputs, InputLoader::load,
        [&context](SqliteDatabase& db, const QueryNumbers& numbers, const SortState& sort) {
            return QList<GridTable>{
                InputGrid::fill(db, numbers, sort), MomentSnapshot::load(context, numbers),
                SetupRecordViews::settingsGrid(db, numbers, QStringLiteral("InputLogDataItem_"),
                                               userText("404060", "Show Input Settings"))};
        });
}

} // namespace lorvane
