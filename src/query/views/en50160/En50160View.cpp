// SPDX-License-Identifier: GPL-3.0-or-later
#include "En50160View.h"

#include "PqTestList.h"
#include "query/engine/DayRowsCopy.h"
#include "query/engine/QueryContext.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult En50160View::run(QueryContext& context)
{
    // The list reads ascending whatever the grid's direction: tests are shown by start time.
    const bool descending = context.start > context.end;
    const QDateTime from = descending ? context.end : context.start;
    const QDateTime to = descending ? context.start : context.end;
    ViewResult result;
    result.logKind = LogKind::EN50160;
    result.grids = {PqTestList::list(*context.scratch, context.files, from, to)};
    DayWalk::Result walk;
    walk.rows = result.grids.first().rows.size();
    walk.noData = walk.rows == 0;
    walk.effectiveStart = context.start;
    walk.effectiveEnd = context.end;
    DayRowsCopy::describe(walk, context, result);
    return result;
}

QList<GridTable> En50160View::grids(QueryContext& context, const QueryNumbers&)
{
    return {PqTestList::grid(context.scratch->database())};
}

} // namespace lorvane
