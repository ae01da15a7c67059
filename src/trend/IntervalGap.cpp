// SPDX-License-Identifier: GPL-3.0-or-later
#include "IntervalGap.h"

#include "TrendTime.h"

#include <cmath>
#include <limits>

namespace lorvane {

bool IntervalGap::breaks(double gapDays)
{
    return gapDays * TrendTime::msPerDay > shortestGapMs;
}

void IntervalGap::apply(const QVector<double>& times, const QVector<double>& values, double gapDays,
                        QVector<double>& outTimes, QVector<double>& outValues)
{
    outTimes = times;
    outValues = values;
    if (!breaks(gapDays))
        return;
    const double gap = gapDays * TrendTime::msPerDay;
    qsizetype gaps = 0;
    for (qsizetype i = 1; i < times.size(); ++i)
        gaps += times.at(i) - times.at(i - 1) > gap ? 1 : 0;
    if (gaps == 0)
        return;
    QVector<double> t, v;
    t.reserve(times.size() + gaps);
    v.reserve(times.size() + gaps);
    for (qsizetype i = 0; i < times.size(); ++i) {
        if (i > 0 && times.at(i) - times.at(i - 1) > gap) {
            t.append((times.at(i) + times.at(i - 1)) / 2);
            v.append(std::numeric_limits<double>::quiet_NaN());
        }
        t.append(times.at(i));
        v.append(values.at(i));
    }
    outTimes = std::move(t);
    outValues = std::move(v);
}

} // namespace lorvane
