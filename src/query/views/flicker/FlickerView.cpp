// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlickerView.h"

#include "FlickerGrid.h"
#include "FlickerLoader.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "query/views/snapshot/MomentSnapshot.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult FlickerView::run(QueryContext& context)
{
    return StatusView::run(context, LogKind::Flicker,
                           StatusView::withMomentSnapshot(FlickerLoader::load),
                           &FlickerView::grids);
}

QList<GridTable> FlickerView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {MomentSnapshot::fill(context, numbers),
            FlickerGrid::fill(context.scratch->database(), numbers,
                              StatusView::sortState(context, LogKind::Flicker),
                              context.dataFormat)};
}

} // namespace lorvane
