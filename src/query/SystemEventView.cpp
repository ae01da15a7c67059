// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemEventView.h"

#include "StatusView.h"
#include "SystemEventGrid.h"
#include "SystemEventLoader.h"

namespace lorvane {

ViewResult SystemEventView::run(QueryContext& context)
{
    return StatusView::run(
        context, LogKind::SystemEvent, SystemEventLoader::load,
        [](SqliteDatabase& db, const QueryNumbers& numbers, const SortState& sort) {
            return QList<GridTable>{SystemEventGrid::fill(db, numbers, sort)};
        });
}

} // namespace lorvane
