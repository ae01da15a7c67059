// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace lorvane {

/// One channel of a capture that the composition graph can draw: where it comes from and, for
/// a section, the stretch in ms (-1 when none was chosen).
struct WaveCompositionItem
{
    /// Position of the capture in the series of the log grid.
    int input = 0;
    /// `RecCounter` of the capture's row.
    qint32 groupIndex = -1;
    /// Channel number 0 to 14.
    int itemIndex = 0;
    QDateTime dateTime;
    /// Milliseconds of the trigger time, tenths kept.
    double ms = 0;
    QString device;
    QString item;
    bool section = false;
    double durationMs = 0;
    double start = -1;
    double end = -1;
};

} // namespace lorvane
