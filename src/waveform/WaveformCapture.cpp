// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformCapture.h"

#include "CsvCaptureFile.h"
#include "SamplePlacement.h"
#include "WavePqLink.h"
#include "WaveformRecordLoader.h"
#include "platform/LoadProgress.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"

namespace lorvane {

bool WaveformCapture::open(SqliteDatabase& scratch, const QueryNumbers& numbers, qint32 recCounter,
                           LoadProgress* progress)
{
    const auto tell = [&](const QString& text) {
        if (progress)
            progress->status(text);
    };
    m_scratch = &scratch;
    m_numbers = numbers;
    m_record = WaveformRecord();
    m_channels = WaveformChannels();
    m_csv.reset();
    m_pqEvent.reset();
    m_failure = Failure::None;
    m_message.clear();
    const auto fail = [&](Failure failure, const QString& message) {
        m_record = WaveformRecord();
        m_channels = WaveformChannels();
        m_csv.reset();
        m_pqEvent.reset();
        m_failure = failure;
        m_message = message;
        return false;
    };
    try {
        tell(userText("501010", "Reading the Waveform data file"));
        WaveformRecordLoader loader(scratch, numbers);
        if (!loader.LoadWaveformRecord(m_record, true, recCounter))
            return fail(Failure::RecordMissing,
                        userText("501002", "There is no waveform record %1 in this query.")
                            .arg(recCounter));
        if (m_record.deviceTypeId == 0 && (m_talmoFrequency == 50 || m_talmoFrequency == 60))
            m_record.systemFrequency = m_talmoFrequency;
        m_pqEvent = WavePqLink::find(scratch, numbers, m_record);
        tell(userText("501011", "Reading in the waveform properties"));
        if (m_record.deviceTypeId == 5) {
            auto csv = std::make_shared<CsvCaptureFile>();
            // Splitting the file into lines is most of the work; the samples are the rest.
            std::optional<ProgressShare> reading;
            std::optional<ProgressShare> sampling;
            if (progress) {
                reading.emplace(*progress, 0.0, 0.8);
                sampling.emplace(*progress, 0.8, 1.0);
            }
            const int read = csv->load(m_record.csvPath, m_record.sampleRate, m_record.sampleCount,
                                       reading ? &*reading : nullptr);
            if (read == clsCSVParser::emptyOrMissing)
                return fail(Failure::FileMissing,
                            userText("501001", "File Error: The file ") + m_record.csvPath +
                                userText("501003", " has a length of zero or does not exist at "
                                                   "the specified location"));
            if (read < 0)
                return fail(Failure::FileMissing,
                            userText("501004", "File Error: The file %1 could not be read.")
                                .arg(m_record.csvPath));
            m_record.timingPT = csv->timingPT();
            m_record.transient = csv->transient();
            const QString problem =
                csv->loadSamples(m_record, m_channels, sampling ? &*sampling : nullptr);
            if (!problem.isEmpty())
                return fail(Failure::FileDamaged,
                            userText("506000", "The capture file %1 of waveform record %2 "
                                               "cannot be shown: %3.")
                                .arg(m_record.csvPath)
                                .arg(recCounter)
                                .arg(problem));
            m_channels.labels = SamplePlacement::labels(m_record);
            for (int c = 0; c < WaveformChannels::analogCount; ++c) {
                if (!m_channels.recorded.at(c))
                    m_channels.labels.at(c) += userText("501042", "-N/A");
            }
            m_csv = std::move(csv);
        } else {
            loader.LoadDatabaseSamples(0, 0, m_record, m_channels);
        }
        tell(userText("501012", "Retrieving Waveform Properties Part 2"));
        return true;
    } catch (const StorageError& error) {
        return fail(Failure::Storage, QString::fromUtf8(error.what()));
    }
}

bool WaveformCapture::loadAdjacent(int direction, int loadChannel, WaveformChannels& channels) const
{
    const bool has = direction == 0 ? m_record.hasNext1 : m_record.hasNext2;
    if (!isOpen() || !m_scratch || !has || loadChannel < 0 ||
        loadChannel >= WaveformChannels::analogCount)
        return false;
    WaveformRecord partial = m_record;
    partial.loadChannel = qint16(loadChannel);
    channels.resize(m_record.sampleCount);
    channels.time = m_channels.time;
    channels.labels = m_channels.labels;
    channels.recorded.fill(false);
    WaveformRecordLoader(*m_scratch, m_numbers)
        .LoadDatabaseSamples(1, direction, partial, channels);
    return true;
}

} // namespace lorvane
