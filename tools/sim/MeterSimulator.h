// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MeterProfile.h"
#include "SimLog.h"
#include "SimMeter.h"
#include "SimOptions.h"

#include <QList>
#include <QString>

namespace lorvane::sim {

/// Writes the meter database(s) of one simulated meter: one file, or for a split-log meter
/// a Device Master Log beside one database per log. Each file is written inside one
/// transaction under a temporary name and renamed when complete, so a failed run leaves
/// nothing half-written and never replaces an existing file unless asked to.
class MeterSimulator
{
public:
    explicit MeterSimulator(SimOptions options);

    /// Writes what the options describe. Throws std::runtime_error with a message for the
    /// user (existing output, unwritable folder) and StorageError on a database failure.
    void run() const;

    /// The demo set in `dir`: Meter1.DB (standard), Meter2.DB (talmo) and the split-log
    /// meter Feeder15/, three days of 5-minute snapshots each. Throws as `run`.
    static void writeDemo(const QString& dir, bool overwrite, bool verbose);

    /// Every data id a meter of this profile holds with `points` snapshot points.
    static QList<qint32> dataPoints(const MeterProfile& profile, int points);

    /// Whether a file of this schema version can hold the log: inputs and relays from 7.9,
    /// flicker from 8.1, system events from 8.4, EN 50160 tests from 8.6, the others always.
    static bool versionHolds(const MeterSchema& schema, SimLog log);

private:
    void writeFile(const QString& path, const QList<SimLog>& logs) const;
    void writeLogs(SimMeter& meter, const QList<SimLog>& logs) const;
    QString hardwareName() const;

    SimOptions m_options;
    MeterProfile m_profile;
};

} // namespace lorvane::sim
