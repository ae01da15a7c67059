// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AdcBlockFactors.h"
#include "clsCSVParser.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <array>

namespace lorvane {

class LoadProgress;
struct WaveformChannels;
struct WaveformRecord;

/// A capture file of a meter that writes one comma-separated file per capture: its header
/// (channels, trigger counter, trigger sample), the transient detail blocks, the result rows
/// and the converter factors, and the samples in volts, amps and input lanes. A label missing
/// from the file leaves its default without a message.
class CsvCaptureFile
{
public:
    static constexpr int maxChannels = 16;
    /// Highest channel id the "[ID:n]" search tries.
    static constexpr int maxChannelId = 228;
    static constexpr int maxTransientBlocks = 6;

    /// One "Block n" of the "Transient Details Blocks". Flag texts lose a leading apostrophe.
    struct TransientBlock
    {
        double dspTransferTimeCounter = 0.0;
        QString hsiTransition = QStringLiteral("0000000000000000");
        QString hsiValueCurrent = QStringLiteral("0000000000000000");
        QString hsiValuePrevious = QStringLiteral("0000000000000000");
        QString posOverrangeFlag = QStringLiteral("0000000000000000");
        QString negOverrangeFlag = QStringLiteral("0000000000000000");
        /// One value per phase (Va, Vb, Vc): sample index, counts, samples.
        std::array<qint32, 3> maxPosIndex{};
        std::array<qint32, 3> maxNegIndex{};
        std::array<qint32, 3> maxPosValue{};
        std::array<qint32, 3> maxNegValue{};
        std::array<qint32, 3> maxPosDuration{};
        std::array<qint32, 3> maxNegDuration{};
    };

    /// A labelled result row and the cells right of its label.
    struct ResultRow
    {
        QString label;
        QStringList values;
    };

    /// Reads the file at `path` and its header. `sampleRate` (per cycle) and `sampleCount`
    /// come from the capture's row; they bound the trigger sample search. Returns the result
    /// of clsCSVParser::import_File: the last line index, or clsCSVParser::emptyOrMissing /
    /// openFailed, in which case nothing else was read. `progress` gets the step texts and the
    /// share of the file read.
    int load(const QString& path, int sampleRate, int sampleCount,
             LoadProgress* progress = nullptr);

    /// Fills `channels` (resized to `record.sampleCount`) with the time axis and the samples:
    /// the status channel into the input lanes, analog channels in file order into Va, Vb,
    /// Vc, Ia, Ib, Ic, I_n (beyond the seventh dropped), scaled by the file's factors and the
    /// record's PT/CT ratios. Returns an empty text, or what is wrong with the file: lines
    /// ended by line feeds alone, no sample rows, a sample count the file cannot hold (checked
    /// before anything is allocated), a channel shorter than the count, a sample that is not a
    /// finite number. `channels` is then empty. `progress` gets a text and a share per channel.
    QString loadSamples(const WaveformRecord& record, WaveformChannels& channels,
                        LoadProgress* progress = nullptr) const;

    /// "Transient" file (line 0 does not say "Waveform" but says "Transient").
    bool transient() const { return m_transient; }
    /// "Num Channels" clamped to 0..16.
    int channelCount() const { return m_channelCount; }
    /// Id from "[ID:n]" in the channel's name, -1 without one (or above 228).
    int channelId(int channel) const { return m_channelIds.at(channel); }
    const QString& channelName(int channel) const { return m_channelNames.at(channel); }
    qint32 triggerTimeCounter() const { return m_triggerTimeCounter; }
    /// Sample number of the trigger; 0 when the transfer rows do not show it.
    qint32 timingPT() const { return m_timingPT; }
    const QList<TransientBlock>& transientBlocks() const { return m_blocks; }
    const QList<ResultRow>& results() const { return m_results; }
    /// Values of result row `label`; empty when the file has none.
    QStringList result(const QString& label) const;
    const AdcBlockFactors& factors() const { return m_factors; }
    /// Rows of ids 77, 78, 79 (line-to-line RMS) in the "DSP RMS Block Transfer" line.
    const std::array<bool, 3>& lineToLineRows() const { return m_lineToLine; }
    /// Seconds the file read took, as "0.000".
    const QString& loadSeconds() const { return m_loadSeconds; }
    const clsCSVParser& parser() const { return m_parser; }

private:
    void readChannels(LoadProgress* progress);
    void readTimingPoint(int sampleRate, int sampleCount);
    void readTransientBlocks();
    void readResults();
    void readLineToLineRows();

    clsCSVParser m_parser;
    bool m_transient = false;
    int m_channelCount = 0;
    std::array<int, maxChannels> m_channelIds{};
    std::array<QString, maxChannels> m_channelNames;
    qint32 m_triggerTimeCounter = 0;
    qint32 m_timingPT = 0;
    QList<TransientBlock> m_blocks;
    QList<ResultRow> m_results;
    AdcBlockFactors m_factors;
    std::array<bool, 3> m_lineToLine{};
    QString m_loadSeconds;
    bool m_lineFeedsOnly = false;
};

} // namespace lorvane
