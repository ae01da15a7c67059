// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace lorvane {

class DataPointSelection;
class LoadProgress;
class MeterTable;
class TopQueryBuffer;

/// Opens and verifies one meter database into the meter table: the Device Master Log
/// redirection, the upgrade ladder and its checks, the comparison with the scratch database,
/// the `DeviceInformation` row and the log inventory.
class AddFileToSystem
{
public:
    struct Outcome
    {
        bool added = false;
        /// Every message the user is shown, in order; a refusal's reason is the last one.
        QStringList messages;
    };

    AddFileToSystem(MeterTable& table, TopQueryBuffer& buffer, DataPointSelection& points,
                    QString scratchPath);

    /// Opens `path` (shown as `name`) as meter `meterIndex + 1`. A refused file leaves the
    /// earlier entry as it was and says why in the outcome. Throws Fault Version, step
    /// "GetDB_Version", for a version that cannot be read (0 or less) and for one below 7.5 or
    /// exactly 7.8: the caller ends the program on it. A read-only file below the newest
    /// layout is refused (the ladder may not write it). `progress` (null for none) watches the
    /// upgrade ladder; its cancel refuses the file, which stays at its last whole version.
    Outcome run(const QString& path, const QString& name, int meterIndex,
                LoadProgress* progress = nullptr);

private:
    MeterTable& m_table;
    TopQueryBuffer& m_buffer;
    DataPointSelection& m_points;
    QString m_scratchPath;
};

} // namespace lorvane
