// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The power quality event a capture belongs to, as texts ready for display, and where it
/// starts and ends among the capture's samples (-1 where that end lies in another capture).
struct WavePqEvent
{
    QString start;
    QString end;
    QString durationMs;
    QString channel;
    QString condition;
    QString value;
    QString percentOfFullScale;
    int startSample = -1;
    int endSample = -1;
};

} // namespace lorvane
