// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane::sim {

/// A log that the simulator writes, numbered as a meter numbers its logs (the number also
/// names the log's own database in a split-log layout).
enum class SimLog : int
{
    Interval1 = 1, ///< snapshots
    Interval2 = 2, ///< energy and demand
    Limits = 3,
    Inputs = 5,
    Relays = 7,
    Flicker = 9,
    Waveform = 10, ///< event captures (all captures when Transient is in the same file)
    SystemEvent = 11,
    PowerQuality = 13,
    EN50160 = 16,
    Transient = 25,
};

} // namespace lorvane::sim
