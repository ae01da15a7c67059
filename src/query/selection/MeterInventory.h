// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DeviceRecord.h"

#include <array>

namespace lorvane {

class MeterDatabase;

/// Reads an open meter into a DeviceRecord: its `DeviceInformation` row, the log inventory,
/// the user item labels, the nominal voltage column, `KGate` and `FirmwareInfo3`.
class MeterInventory
{
public:
    /// Fills the record of meter `meterIndex` (0 for meter 1). Throws Fault: Damaged with
    /// "This database is damaged. Table:  DeviceInformation ..." when that table has no row,
    /// or the engine's failure with the step that was running.
    static DeviceRecord read(MeterDatabase& meter, int meterIndex);

    /// The log inventory alone: which logs the file holds, by log kind 0 to 13.
    static std::array<bool, logAvailableCount> logAvailable(MeterDatabase& meter,
                                                            qint32 deviceTypeId);
};

} // namespace lorvane
