// SPDX-License-Identifier: GPL-3.0-or-later
#include "LimitView.h"

#include "LimitGrid.h"
#include "LimitLoader.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "query/views/setup/ScaledFormatsLoader.h"
#include "query/views/snapshot/MomentSnapshot.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult LimitView::run(QueryContext& context)
{
    const auto load = [](QueryContext& c, QList<LogFileEntry>& files, const QueryNumbers& numbers) {
        const DayWalk::Result walk = LimitLoader::load(c, files, numbers);
        LimitLoader::fillTagNames(c, numbers);
        ScaledFormatsLoader::load(c.scratch->database(), files, numbers);
        return walk;
    };
    return StatusView::run(context, LogKind::Limits, StatusView::withMomentSnapshot(load),
                           &LimitView::grids);
}

QList<GridTable> LimitView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {LimitGrid::fill(context.scratch->database(), numbers, context.descending,
                            context.sortColumn, context.dataFormat),
            MomentSnapshot::fill(context, numbers)};
}

} // namespace lorvane
