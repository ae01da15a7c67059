// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlickerView.h"

#include "FlickerGrid.h"
#include "FlickerLoader.h"
#include "MomentSnapshot.h"
#include "StatusView.h"

namespace lorvane {

ViewResult FlickerView::run(QueryContext& context)
{
    return StatusView::run(
        context, LogKind::Flicker, FlickerLoader::load,
        [&context](SqliteDatabase& db, const QueryNumbers& numbers, const SortState& sort) {
            return QList<GridTable>{MomentSnapshot::load(context, numbers),
                                    FlickerGrid::fill(db, numbers, sort)};
        });
}

} // namespace lorvane
