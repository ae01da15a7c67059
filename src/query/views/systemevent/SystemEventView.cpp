// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemEventView.h"

#include "SystemEventGrid.h"
#include "SystemEventLoader.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult SystemEventView::run(QueryContext& context)
{
    return StatusView::run(context, LogKind::SystemEvent, SystemEventLoader::load,
                           &SystemEventView::grids);
}

QList<GridTable> SystemEventView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {SystemEventGrid::fill(context.scratch->database(), numbers,
                                  StatusView::sortState(context, LogKind::SystemEvent))};
}

} // namespace lorvane
