// SPDX-License-Identifier: GPL-3.0-or-later
#include "RoundValueTicks.h"

#include "graph/NiceTicks.h"

#include <QValueAxis>

namespace lorvane {

void RoundValueTicks::follow(QValueAxis* axis, int maxTicks)
{
    axis->setTickType(QValueAxis::TicksDynamic);
    axis->setTickAnchor(0);
    const auto apply = [axis, maxTicks](qreal min, qreal max) {
        const AxisTicks ticks = NiceTicks::linear(AxisRange{min, max}, maxTicks);
        if (ticks.step <= 0)
            return;
        axis->setTickInterval(ticks.step);
        axis->setLabelFormat(QStringLiteral("%.") + QString::number(ticks.decimals) +
                             QLatin1Char('f'));
    };
    QObject::connect(axis, &QValueAxis::rangeChanged, axis, apply);
    apply(axis->min(), axis->max());
}

} // namespace lorvane
