// SPDX-License-Identifier: GPL-3.0-or-later
#include "StatusView.h"

#include "DayRowsCopy.h"
#include "LogFileList.h"
#include "QueryContext.h"
#include "SortOptions.h"
#include "platform/Fault.h"
#include "platform/UserText.h"
#include "query/views/snapshot/MomentSnapshot.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

SortState StatusView::sortState(const QueryContext& context, LogKind kind)
{
    SortState state;
    state.descending = context.descending;
    state.item = SortOptions::itemIndex(kind, context.sortColumn);
    if (state.item < 0) {
        throw Fault(Fault::Kind::Other,
                    userText("304040", "This view cannot be sorted by") + QStringLiteral(" \"") +
                        context.sortColumn + QStringLiteral("\". ") +
                        userText("304041", "Sort items") + QStringLiteral(": ") +
                        SortOptions::itemTexts(kind).join(QStringLiteral(", ")),
                    QStringLiteral("SortOptions"), QString());
    }
    return state;
}

StatusView::Loader StatusView::withMomentSnapshot(Loader load)
{
    return [load = std::move(load)](QueryContext& context, QList<LogFileEntry>& files,
                                    const QueryNumbers& numbers) {
        const DayWalk::Result walk = load(context, files, numbers);
        MomentSnapshot::read(context, files, numbers);
        return walk;
    };
}

ViewResult StatusView::run(QueryContext& context, LogKind kind, const Loader& load,
                           const Grids& grids, const Expand& expand)
{
    // An unknown sort item is refused before any meter file is read.
    sortState(context, kind);
    QList<LogFileEntry> files =
        expand ? expand(context.files) : LogFileList::expand(context.files, static_cast<int>(kind));
    ViewResult result;
    result.logKind = kind;
    result.numbers = QueryCatalog(*context.scratch)
                         .createQuery(std::min(context.start, context.end),
                                      std::max(context.start, context.end), kind, files);
    const DayWalk::Result walk = load(context, files, result.numbers);
    result.grids = grids(context, result.numbers);
    DayRowsCopy::describe(walk, context, result);
    return result;
}

} // namespace lorvane
