// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PowerSystemModel.h"
#include "PqTestSettings.h"
#include "platform/SqliteDatabase.h"
#include "store/MeterSchema.h"

#include <QString>

namespace lorvane::sim {

/// One meter database being written: the open file, its schema version, the supply it
/// measures and the period. Every log writer takes one; the orchestrator owns the file, its
/// transaction and the layout (one file, or one file per log for a split-log meter).
struct SimMeter
{
    SqliteDatabase* db = nullptr;
    MeterSchema schema;
    const PowerSystemModel* model = nullptr;
    quint64 seed = 1;
    int deviceTypeId = 0;
    QString hardwareName;
    /// Folder of the database file; capture files of a split-log meter are written below it
    /// at the relative path their `sample0` names.
    QString folder;
    qint64 startSecond = 0; ///< first instant (meter local time read as UTC seconds)
    qint64 endSecond = 0;   ///< end of the period, exclusive
    PqTestSettings pqTest;
};

} // namespace lorvane::sim
