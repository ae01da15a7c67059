// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MeterProfile.h"
#include "PqTestSettings.h"

#include <QDate>
#include <QString>

namespace lorvane::sim {

/// What one run of the simulator writes.
struct SimOptions
{
    QString out; ///< the database file, or the meter folder of a split-log meter
    MeterKind kind = MeterKind::Standard;
    quint64 seed = 1;
    QDate start = QDate(2024, 3, 4);
    int days = 3;
    int intervalMinutes = 5;
    int points = 50;
    double schemaVersion = 8.6;
    QString hardwareName; ///< empty: a name made from the device type and the seed
    PqTestSettings pqTest;
    bool overwrite = false;
    bool verbose = false;
};

} // namespace lorvane::sim
