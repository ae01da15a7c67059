// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace lorvane {

struct WaveformChannels;
struct WaveformRecord;

/// Where the sample columns of a waveform row go, by sample rate and record format, how a
/// wiring that records phase voltages of a delta is turned into line voltages, and what the
/// channels are called.
class SamplePlacement
{
public:
    static constexpr int columnCount = 15;
    /// Channel group of a partial load: voltages, currents, or I_n.
    static int group(int channel) { return channel < 3 ? 0 : channel < 6 ? 1 : 2; }
    /// The low byte of `HookUp`, which selects the wiring.
    static int wiring(qint32 hookUp) { return hookUp & 0xFF; }

    /// Column `column` (0..14) goes to channel `channel` (0..14, -1: nowhere) from sample
    /// `offset` on.
    struct Target
    {
        int channel = -1;
        int offset = 0;
    };
    /// The target of a column for a row of `sampleRate` samples per cycle and `recordFormat`;
    /// device type 4 places every rate like 16..128.
    static Target target(int sampleRate, int recordFormat, int deviceTypeId, int column);
    /// True when a row of that rate and format carries samples of `channel` (0..6).
    static bool carries(int sampleRate, int recordFormat, int deviceTypeId, int channel);

    /// Reads the texts of `Sample0`..`Sample14` (values separated by CR, a LF behind it
    /// tolerated; volts and amps for 0..6, input states for 7..14) into `channels`, which must
    /// already hold `record.sampleCount` samples. An empty or "N/A" column leaves its channel
    /// as it is; a value that is not a number counts as 0. With `loadChannel` 0..6 only the
    /// analog columns of that channel's group are read and reconstructed; -1 reads all.
    static void place(const WaveformRecord& record, const std::array<QString, columnCount>& columns,
                      int loadChannel, WaveformChannels& channels);

    /// Display labels of the fifteen channels for the record's wiring, rate, format, device
    /// type and input labels ("Van", "Vab-N/A", "Ib (reconstructed)", "Breaker 52a" ...).
    static std::array<QString, columnCount> labels(const WaveformRecord& record);
};

} // namespace lorvane
