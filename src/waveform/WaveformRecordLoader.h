// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/QueryCatalog.h"

#include <QString>
#include <QVector>

namespace lorvane {

class SqliteDatabase;
struct WaveformChannels;
struct WaveformRecord;

/// Reads a capture row of a query's waveform table with its device row, capture settings,
/// full scales and input labels, and the samples kept in the row's sample columns. Every
/// statement runs on the scratch database with bound values; a failing statement throws
/// StorageError.
class WaveformRecordLoader
{
public:
    /// Reads `WaveformLog_{Q}_{S}`, `LogDevices_{Q}`, `PQWaveLogDataItem_{Q}_{S}`,
    /// `FullScales_{Q}_{S}` and `HSInputLabels_{Q}_{S}` of `numbers` in `scratch`, which must
    /// outlive the loader.
    WaveformRecordLoader(SqliteDatabase& scratch, const QueryNumbers& numbers);

    /// Fills `record` from row `recCounter`. With `first` the contiguous rows that follow
    /// (WaveformNumber + 1, and + 2 at rates 128 to 512 on a meter without capture files)
    /// are looked up; without it the adjacent fields are left as they are. Returns false,
    /// leaving `record` untouched, when there is no such row.
    bool LoadWaveformRecord(WaveformRecord& record, bool first, qint32 recCounter);

    /// Fills `channels` from the sample columns. Mode 0: the record's own row, found by its
    /// time (`WSDT` on device type 4); `channels` is resized to `record.sampleCount`, gets
    /// the time axis and the labels, and every channel the row does not carry stays zero.
    /// Mode 1: the contiguous row NextRecCounter1 (`direction` 0) or NextRecCounter2 (1);
    /// only the analog group of `record.loadChannel` is read into `channels` as they are.
    /// No row found leaves the arrays as they are.
    void LoadDatabaseSamples(int mode, int direction, const WaveformRecord& record,
                             WaveformChannels& channels);

    /// Samples per channel: device type 5 from the second item of `sample1` ("rate,count,n");
    /// device type 4 2048; rate 256 2048, 512 4096, others 1024 (960 at 16 on device type 0).
    static qint32 sampleCount(int sampleRate, int deviceTypeId, const QString& sample1);
    /// The capture file of `sample0` (a name such as "csv\WAVEFORM_0004.csv") beside the meter
    /// database `dbPath`; when that file is missing, the part from "\csv\" on under the
    /// current directory.
    static QString captureFilePath(const QString& dbPath, const QString& sample0);

private:
    SqliteDatabase& m_db;
    QueryNumbers m_numbers;
};

} // namespace lorvane
