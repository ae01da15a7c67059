// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MeterItems.h"
#include "store/LogKind.h"

#include <QList>
#include <QPair>
#include <QString>
#include <array>

namespace lorvane {

/// One open meter: what its `DeviceInformation` row says, where the file lies, and which logs
/// it holds (`logAvailable`, indexed by log kind 0 to 13).
struct DeviceRecord
{
    bool used = false;
    qint32 deviceTypeId = 0;
    QString deviceType;
    QString fileName;
    QString filePath;
    qint32 address = 0;
    QString status;
    QString hardwareName;
    QString hardwareId;
    std::array<bool, logAvailableCount> logAvailable{};
    bool hasNominalVoltage = false;
    QString firmwareInfo3;
    qint32 kGate = -1;
    /// (`Item_Index`, label) of the user defined item labels, meter 1 from version 9.1.
    QList<QPair<qint64, QString>> userItemLabels;
    /// The inputs, relays and demand items chosen for this meter; a newly opened meter has
    /// none chosen and its views read all of them.
    MeterItems items;

    bool hasLog(LogKind kind) const { return logAvailable.at(static_cast<int>(kind)); }
};

} // namespace lorvane
