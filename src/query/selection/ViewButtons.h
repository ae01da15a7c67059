// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DeviceRecord.h"

#include <array>

namespace lorvane {

class MeterTable;

/// Which view buttons (`Command2`, index 0 to 14) the open meters enable, by device type.
class ViewButtons
{
public:
    static constexpr int count = 15;
    using States = std::array<bool, count>;

    enum Button : int
    {
        DatabaseStatus = 0,
        Snapshots = 1,
        Demand = 2,
        Limits = 3,
        Waveform = 4,
        PowerQuality = 5,
        Reports = 6,
        Inputs = 7,
        Relays = 8,
        Pqdif = 9,
        Billing = 10,
        Flicker = 11,
        SystemEvent = 12,
        Comtrade = 13,
        EN50160 = 14,
    };

    /// The union over every used meter of what its type enables. The export buttons (reports,
    /// PQDIF, COMTRADE) follow `exportComponentPresent` once any meter is used. No used meter
    /// enables nothing.
    static States enabled(const MeterTable& meters, bool exportComponentPresent = false);

    /// What one meter enables: types 0 and 3 by the log inventory, 4 the same without EN
    /// 50160, 5 (split-log) by which of its log files exist and are not empty, 6 status,
    /// snapshots, system events and billing; any other type nothing.
    static States enabledBy(const DeviceRecord& meter);
};

} // namespace lorvane
