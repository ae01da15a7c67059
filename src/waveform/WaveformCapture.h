// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WavePqEvent.h"
#include "WaveformChannels.h"
#include "WaveformRecord.h"
#include "query/engine/QueryCatalog.h"

#include <QString>
#include <memory>
#include <optional>

namespace lorvane {

class CsvCaptureFile;
class LoadProgress;
class SqliteDatabase;

/// One opened capture of a waveform or PQ query: its header, its samples and, for a capture
/// kept in a CSV file, the parsed file (its result rows stay readable while the capture is
/// open). The waveform window, the statistics and the command line all open captures here.
class WaveformCapture
{
public:
    /// Why an open failed.
    enum class Failure
    {
        None,
        RecordMissing, ///< no row with that `RecCounter` in the query's waveform table
        FileMissing,   ///< the capture file is missing or empty
        FileDamaged,   ///< the capture file is not what its record says (message tells why)
        Storage,       ///< a statement on the scratch database failed
    };

    /// Reads row `recCounter` of `WaveformLog_{Q}_{S}` in `scratch` with its device row,
    /// settings, full scales and input labels, then its samples (from the capture file for
    /// device type 5, from the sample columns otherwise). True on success; on failure the
    /// previous capture is gone, `failure()` tells why and `message()` holds the user's text.
    /// `scratch` must outlive this object (adjacent rows are read from it later). Never throws.
    /// `progress` gets the step texts and, for a capture file, the share read.
    bool open(SqliteDatabase& scratch, const QueryNumbers& numbers, qint32 recCounter,
              LoadProgress* progress = nullptr);

    /// The connection later reads (the contiguous rows) go through: a capture read off the
    /// window thread on a connection of its own is handed the window thread's connection.
    void useDatabase(SqliteDatabase& scratch) { m_scratch = &scratch; }

    /// The display frequency of the time axes of device type 0 (50 or 60), used by the next
    /// open; the other families keep their axis whatever the system.
    void setTalmoFrequency(int hz) { m_talmoFrequency = hz; }

    const WaveformRecord& record() const { return m_record; }
    /// The power quality event the capture belongs to, when the query holds it.
    const std::optional<WavePqEvent>& pqEvent() const { return m_pqEvent; }
    WaveformRecord& record() { return m_record; }
    const WaveformChannels& channels() const { return m_channels; }
    WaveformChannels& channels() { return m_channels; }
    /// The parsed capture file of a device type 5 capture; nullptr for the others.
    const CsvCaptureFile* csvFile() const { return m_csv.get(); }
    Failure failure() const { return m_failure; }
    /// The text shown for a failed open; empty after a successful one.
    const QString& message() const { return m_message; }
    bool isOpen() const { return m_failure == Failure::None && m_record.recCounter >= 0; }

    /// Loads the samples of channel group `loadChannel` (0..2 voltages, 3..5 currents, 6 I_n)
    /// of the contiguous row after the open one (`direction` 0: WaveformNumber + 1, 1: + 2)
    /// into `channels`, which is resized to the capture's sample count first. The open
    /// capture's own arrays are left alone. False when there is no such row (see `hasNext1`
    /// and `hasNext2` of the record) or no capture is open; throws StorageError when a
    /// statement fails.
    bool loadAdjacent(int direction, int loadChannel, WaveformChannels& channels) const;

private:
    SqliteDatabase* m_scratch = nullptr;
    QueryNumbers m_numbers;
    WaveformRecord m_record;
    WaveformChannels m_channels;
    std::shared_ptr<CsvCaptureFile> m_csv;
    std::optional<WavePqEvent> m_pqEvent;
    int m_talmoFrequency = 0;
    Failure m_failure = Failure::None;
    QString m_message;
};

} // namespace lorvane
