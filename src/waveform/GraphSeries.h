// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace lorvane {

/// What a chart of the waveform analysis shows: its titles and one series of points with an
/// optional label text under each point. The window draws it; the numbers come from the core.
struct GraphSeries
{
    QString title;
    QString subsetTitle;
    QString xTitle;
    QString yTitle;
    QVector<double> x;
    QVector<double> y;
    /// One text a point, or empty when the x values label themselves.
    QStringList labels;
};

} // namespace lorvane
