// SPDX-License-Identifier: GPL-3.0-or-later
#include "LimitView.h"

#include "DayRowsCopy.h"
#include "LimitGrid.h"
#include "LimitLoader.h"
#include "LogFileList.h"
#include "MomentSnapshot.h"
#include "QueryContext.h"
#include "ScaledFormatsLoader.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult LimitView::run(QueryContext& context)
{
    constexpr int kind = static_cast<int>(LogKind::Limits);
    QList<LogFileEntry> files = LogFileList::expand(context.files, kind);
    SqliteDatabase& db = context.scratch->database();
    ViewResult result;
    result.logKind = kind;
    result.numbers =
        QueryCatalog(*context.scratch).createQuery(context.start, context.end, kind, files);
    const DayWalk::Result walk = LimitLoader::load(context, files, result.numbers);
    LimitLoader::fillTagNames(context, result.numbers);
    ScaledFormatsLoader::load(db, files, result.numbers);
    MomentSnapshot::read(context, result.numbers);
    result.grids = grids(context, result.numbers);
    DayRowsCopy::describe(walk, context, result);
    return result;
}

QList<GridTable> LimitView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {LimitGrid::fill(context.scratch->database(), numbers, context.descending,
                            context.sortColumn, context.dataFormat),
            MomentSnapshot::fill(context, numbers)};
}

} // namespace lorvane
