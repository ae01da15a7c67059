// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane::sim {

struct SimMeter;

/// Writes the power quality log of a meter: `AllPQLogs` day rows and `PQLog_{n}` rows, one
/// per disturbance of the supply model, linked to the capture that CapturePlan numbers for
/// it, plus one row whose capture is missing on purpose (SWNumber and EWNumber
/// CapturePlan::missingWaveformNumber), so that link checks have a failure to find.
class PqLogWriter
{
public:
    /// The file-wide tables must exist; the caller owns the transaction. Throws StorageError
    /// on an engine error.
    static void write(const SimMeter& meter);
};

} // namespace lorvane::sim
