// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/WorkGuard.h"
#include "query/engine/QueryCatalog.h"
#include "store/TempQueryDatabase.h"

#include <QList>
#include <QTemporaryDir>
#include <memory>

namespace lorvane::test {

/// The waveform log of a meter written by lorvane-sim, loaded into a scratch database through
/// the waveform view as the log grid does it, with a settings file in a temporary folder.
class WaveWindowFixture
{
public:
    /// A meter that keeps its samples in the rows, or one that writes a file per capture.
    enum class Meter
    {
        Standard,
        CaptureFiles,
        /// The family without the neutral current (device type 0), on a 50 Hz system.
        Talmo,
    };

    explicit WaveWindowFixture(Meter meter = Meter::Standard);

    SqliteDatabase& scratch() { return m_scratch->database(); }
    const QueryNumbers& numbers() const { return m_numbers; }
    /// `RecCounter` of every grid row, in grid order.
    const QList<qint32>& series() const { return m_series; }
    /// Grid position of the first periodic capture at `sampleRate` samples per cycle, -1 none.
    int periodic(int sampleRate, int skip = 0);
    QString settingsFile() const { return m_dir.filePath(QStringLiteral("Lorvane.Ini")); }
    QString file(const QString& name) const { return m_dir.filePath(name); }
    /// The file `lorvane-cli waveform --meter` takes for this meter.
    const QString& meterFile() const { return m_meterFile; }
    /// The one busy guard the windows of the test share, as windows of a run share theirs.
    WorkGuard& work() { return m_work; }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<TempQueryDatabase> m_scratch;
    QueryNumbers m_numbers;
    QList<qint32> m_series;
    QString m_meterFile;
    WorkGuard m_work;
};

} // namespace lorvane::test
