// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The power quality event a capture belongs to, as texts ready for display.
struct WavePqEvent
{
    QString start;
    QString end;
    QString durationMs;
    QString channel;
    QString condition;
    QString value;
    QString percentOfFullScale;
};

} // namespace lorvane
