// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/selection/MeterItems.h"

#include <QDateTime>
#include <QString>

namespace lorvane {

/// One database a query reads: a meter file, or one log file of a split-log meter.
struct LogFileEntry
{
    QString dbPath;
    qint32 deviceTypeId = 0;
    QString hardwareName;
    bool used = false;
    /// Cleared by a load when the file could not be opened, so the rest of the query goes on.
    bool readable = true;
    QDateTime startTime;
    QDateTime endTime;
    /// Position in the expanded list, from 0; rows read from the file carry `deviceIndex + 1`
    /// as their `DeviceIndex`, which `LogDevices_{Q}` maps back to the file and meter name.
    qint32 deviceIndex = 0;
    /// The meter's chosen inputs, relays and demand items; every log file of a split-log
    /// meter carries its meter's choice.
    MeterItems items;
};

} // namespace lorvane
