// SPDX-License-Identifier: GPL-3.0-or-later
#include "MsView.h"

#include "TrendTime.h"

#include <algorithm>

namespace lorvane {

std::optional<MsView> MsViewMaker::make(const QList<GraphSet>& sets, const MsViewRequest& request)
{
    if (request.focus >= sets.size() || (request.byPoints && request.points <= 0) ||
        (!request.byPoints && !(request.durationMs > 0)))
        return std::nullopt;
    MsView view;
    view.start = request.start;
    for (int s = 0; s < sets.size(); ++s) {
        if (request.focus >= 0 && s != request.focus)
            continue;
        const GraphSet& source = sets.at(s);
        const qsizetype first =
            std::lower_bound(source.times.cbegin(), source.times.cend(), request.start) -
            source.times.cbegin();
        qsizetype last = first;
        if (request.byPoints)
            last = std::min<qsizetype>(
                source.size(), first + qsizetype(std::min<qint64>(request.points, source.size())));
        else
            last = std::upper_bound(source.times.cbegin() + first, source.times.cend(),
                                    request.start + request.durationMs) -
                   source.times.cbegin();
        if (last <= first)
            continue;
        GraphSet set = source;
        set.times.clear();
        set.values = source.values.mid(first, last - first);
        set.times.reserve(last - first);
        for (qsizetype i = first; i < last; ++i)
            set.times.append((source.times.at(i) - request.start) / TrendTime::msPerSecond);
        set.summarise();
        view.sets.append(set);
    }
    if (view.sets.isEmpty())
        return std::nullopt;
    return view;
}

} // namespace lorvane
