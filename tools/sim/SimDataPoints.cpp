// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimDataPoints.h"

#include <algorithm>

namespace lorvane::sim {

const QList<qint32>& SimDataPoints::snapshotPlan()
{
    static const QList<qint32> ids{20617, 20621, 20625, 20629, 20633, 20637,
                                   20641, 20645, 20649, 20653,                // voltage
                                   21017, 21021, 21025, 21029, 21033,         // current
                                   21203, 21204, 21205, 21206, 21207, 21208,  // power
                                   21401, 21402, 21403, 21404,                // power factor
                                   21601,                                     // frequency
                                   22001, 22002, 22003, 22004, 22005, 22006,  // THD
                                   20825, 20826,                              // billing
                                   26003, 26004, 26005, 26006,                // energy
                                   26201, 26202, 26203, 26204, 26205, 26206,  // demand
                                   27401, 27402, 27403, 27404, 27405, 27406}; // flicker
    return ids;
}

QList<qint32> SimDataPoints::snapshotPoints(int count)
{
    const qsizetype n = std::clamp<qsizetype>(count, 1, snapshotPlan().size());
    return snapshotPlan().mid(0, n);
}

const QList<qint32>& SimDataPoints::demandIds()
{
    static const QList<qint32> ids{26201, 26202, 26203, 26204, 26205, 26206};
    return ids;
}

const QList<qint32>& SimDataPoints::flickerIds()
{
    static const QList<qint32> ids{27401, 27402, 27403, 27404, 27405, 27406};
    return ids;
}

QList<qint32> SimDataPoints::complianceIds()
{
    QList<qint32> ids;
    for (qint32 id = 30001; id <= 30082; ++id)
        ids << id;
    return ids;
}

} // namespace lorvane::sim
