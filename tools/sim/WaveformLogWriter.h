// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane::sim {

struct SimMeter;

/// Which captures a waveform log file holds: all of them, the RMS event captures (sags,
/// swells, interruptions and the periodic captures), or the transient captures only.
enum class WaveformSet
{
    All,
    EventCaptures,
    Transients
};

/// Writes the waveform log of a meter: `AllWaveformLogs` day rows and `WaveformLog_{n}`
/// capture rows as CapturePlan numbers them; a capture-file meter (device type 5) also gets
/// one CSV file per capture below meter.folder.
class WaveformLogWriter
{
public:
    /// Writes the captures of `set`. The file-wide tables must exist; the caller owns the
    /// transaction. Throws StorageError on an engine error or an unwritable capture file.
    static void write(const SimMeter& meter, WaveformSet set);
};

} // namespace lorvane::sim
