// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MeterProfile.h"
#include "SimLog.h"
#include "SimMeter.h"

#include <QList>

namespace lorvane::sim {

/// Writes the identity and description tables of a meter file: `ID_Table`,
/// `DeviceInformation`, `AllLogs` (one download row per log of the file), `DataPoints`,
/// `ScaledFormats`, `User_Defined_Item_Labels` (9.1 on) and, once the logs are written,
/// `LastTimeStamps`.
class FileHeaderWriter
{
public:
    /// `logs`: the logs of this file; `dataPoints`: every data id the meter holds.
    /// Throws StorageError on a database failure.
    static void write(const SimMeter& meter, const MeterProfile& profile, const QList<SimLog>& logs,
                      const QList<qint32>& dataPoints);
    /// One row per log of the file with its last record, read back from the master tables,
    /// plus a row of log 0 (a reset marker) that listings skip.
    static void writeLastTimeStamps(const SimMeter& meter, const QList<SimLog>& logs);
    /// The download option name of a log ("Historical Log 1", "Flicker Log" ...).
    static QString optionName(SimLog log);
};

} // namespace lorvane::sim
