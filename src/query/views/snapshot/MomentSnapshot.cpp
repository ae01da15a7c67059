// SPDX-License-Identifier: GPL-3.0-or-later
#include "MomentSnapshot.h"

#include "SnapshotGrid.h"
#include "SnapshotLoader.h"
#include "SnapshotView.h"
#include "query/engine/QueryContext.h"
#include "store/LogKind.h"

#include <algorithm>

namespace lorvane {

namespace {

/// The view's sort item and type choice belong to its own log: the snapshots are read of
/// every record type and shown in time order.
QueryContext snapshotContext(const QueryContext& context)
{
    QueryContext snapshots = context;
    snapshots.typeFilter = 0;
    snapshots.sortColumn.clear();
    // The loader reads from the later end when descending; some views keep the range in
    // ascending order whatever the direction.
    const QDateTime first = std::min(context.start, context.end);
    const QDateTime last = std::max(context.start, context.end);
    snapshots.start = context.descending ? last : first;
    snapshots.end = context.descending ? first : last;
    return snapshots;
}

constexpr LogKind kind = LogKind::Snapshots;

} // namespace

void MomentSnapshot::read(const QueryContext& context, QList<LogFileEntry>& files,
                          const QueryNumbers& numbers)
{
    QueryContext snapshots = snapshotContext(context);
    SnapshotLoader(snapshots, kind).load(numbers, files, snapshots.start, snapshots.end);
}

GridTable MomentSnapshot::fill(const QueryContext& context, const QueryNumbers& numbers)
{
    return SnapshotGrid(snapshotContext(context)).fill(numbers, SnapshotView::caption(kind));
}

} // namespace lorvane
