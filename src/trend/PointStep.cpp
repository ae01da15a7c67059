// SPDX-License-Identifier: GPL-3.0-or-later
#include "PointStep.h"

#include <algorithm>

namespace lorvane {

namespace {

std::optional<FoundPoint> step(const QList<GraphSet>& sets, int focus, double cursor, bool forward)
{
    std::optional<FoundPoint> best;
    for (int s = 0; s < sets.size(); ++s) {
        if (focus >= 0 && s != focus)
            continue;
        const QVector<double>& times = sets.at(s).times;
        qsizetype at = -1;
        if (forward) {
            at = std::upper_bound(times.cbegin(), times.cend(), cursor) - times.cbegin();
            if (at >= times.size())
                continue;
        } else {
            at = (std::lower_bound(times.cbegin(), times.cend(), cursor) - times.cbegin()) - 1;
            if (at < 0)
                continue;
        }
        const double time = times.at(at);
        const bool better = !best || (forward ? time < best->time : time > best->time);
        if (better)
            best = FoundPoint{s, int(at), time, sets.at(s).values.at(at)};
    }
    return best;
}

} // namespace

std::optional<FoundPoint> PointStep::next(const QList<GraphSet>& sets, int focus, double cursor)
{
    return step(sets, focus, cursor, true);
}

std::optional<FoundPoint> PointStep::previous(const QList<GraphSet>& sets, int focus, double cursor)
{
    return step(sets, focus, cursor, false);
}

} // namespace lorvane
