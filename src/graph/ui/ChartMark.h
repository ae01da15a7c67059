// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

namespace lorvane {

/// A vertical line across the plot at one x with a text at its top: a trigger, a mark set by
/// the user, the start and end of an event.
struct ChartMark
{
    double x = 0;
    QString text;
    QColor color = Qt::darkGray;
};

} // namespace lorvane
