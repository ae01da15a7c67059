// SPDX-License-Identifier: GPL-3.0-or-later
#include "CsvCaptureFile.h"

#include "WaveformChannels.h"
#include "WaveformRecord.h"
#include "WaveformTimeBase.h"
#include "platform/LoadProgress.h"
#include "platform/UserText.h"

#include <QElapsedTimer>
#include <QFile>
#include <cmath>

namespace lorvane {

namespace {

void tell(LoadProgress* progress, const QString& text)
{
    if (progress)
        progress->status(text);
}

QString withoutApostrophe(QString text)
{
    if (text.startsWith(QLatin1Char('\'')))
        text.remove(0, 1);
    return text;
}

/// The labels of the result rows, the numbered ones once per number.
QStringList resultLabels()
{
    QStringList labels;
    for (const char* base : {"One Cycle RMS [", "One Cycle Mean ["}) {
        for (int n = 0; n <= 17; ++n)
            labels << QString::fromLatin1(base) + QString::number(n) + QLatin1Char(']');
    }
    labels << QStringLiteral("Period Count") << QStringLiteral("Cycle Completed Count")
           << QStringLiteral("Ref Sample Index") << QStringLiteral("Abs Sample Index")
           << QStringLiteral("HSI Transitions") << QStringLiteral("HSI States")
           << QStringLiteral("DSP Runtime Type") << QStringLiteral("DSP Runtime Version")
           << QStringLiteral("DSP Runtime ID") << QStringLiteral("Voltage RMS Sag Flags")
           << QStringLiteral("Voltage RMS Surge Flags") << QStringLiteral("Voltage Waveshape Flags")
           << QStringLiteral("Transient Pos Overrange Flags")
           << QStringLiteral("Transient Neg Overrange Flags");
    for (const char* base :
         {"Transient Pos Max Sample Index [", "Transient Pos Max Sample Value [",
          "Transient Pos Max Sample Duration [", "Transient Neg Max Sample Index [",
          "Transient Neg Max Sample Value [", "Transient Neg Max Sample Duration ["}) {
        for (int n = 0; n <= 17; ++n)
            labels << QString::fromLatin1(base) + QString::number(n) + QLatin1Char(']');
    }
    labels << QStringLiteral("Current RMS Sag Flags") << QStringLiteral("Current RMS Surge Flags")
           << QStringLiteral("Current COR Flags") << QStringLiteral("Voltage RMS Sag Transitions")
           << QStringLiteral("Voltage RMS Surge Transitions")
           << QStringLiteral("Current RMS Sag Transitions")
           << QStringLiteral("Current RMS Surge Transitions");
    return labels;
}

/// True when the start of the file has line feeds but never a carriage return before one.
bool lineFeedsOnly(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(1 << 16);
    return head.contains('\n') && !head.contains("\r\n");
}

} // namespace

int CsvCaptureFile::load(const QString& path, int sampleRate, int sampleCount,
                         LoadProgress* progress)
{
    m_parser = clsCSVParser();
    QElapsedTimer clock;
    clock.start();
    const int result = m_parser.import_File(path, progress);
    m_loadSeconds = QString::number(double(clock.elapsed()) / 1000.0, 'f', 3);
    if (result < 0)
        return result;
    m_lineFeedsOnly = lineFeedsOnly(path);

    const QString first = m_parser.Get_Line(0) ? m_parser.Get_Line(0)->Token(0) : QString();
    m_transient = !first.contains(QLatin1String("Waveform"), Qt::CaseInsensitive) &&
                  first.contains(QLatin1String("Transient"), Qt::CaseInsensitive);
    readChannels(progress);
    tell(progress, userText("501022", "Reading the Trigger Time Count"));
    m_triggerTimeCounter = m_parser.Get_Token_Value(QStringLiteral("Trigger Time Counter")).toInt();
    tell(progress, userText("501023", "Reading the Trigger Timing Point"));
    readTimingPoint(sampleRate, sampleCount);
    m_blocks.clear();
    if (m_transient)
        readTransientBlocks();
    readResults();
    m_factors = AdcBlockFactors();
    m_factors.read(m_parser);
    readLineToLineRows();
    return result;
}

void CsvCaptureFile::readChannels(LoadProgress* progress)
{
    m_channelIds.fill(-1);
    m_channelNames.fill(QString());
    tell(progress, userText("501020", "Reading the total number of channels"));
    int row = 0;
    int col = 0;
    m_channelCount = 0;
    if (!m_parser.Find_Token(QStringLiteral("Num Channels"), row, col))
        return;
    m_channelCount = qBound(0, m_parser.Get_Line(row)->Token(col + 1).toInt(), maxChannels);
    tell(progress, userText("501021", "Reading the channel Ids"));
    for (int c = 0; c < m_channelCount; ++c) {
        const clsCSVLine* line = m_parser.Get_Line(row + 1 + c);
        if (clsCSVParser::isLineNothing(line))
            break;
        m_channelNames[c] = line->Token(col + 1);
        const QString upper = m_channelNames[c].toUpper();
        for (int id = 0; id <= maxChannelId; ++id) {
            if (upper.contains(QStringLiteral("[ID:%1]").arg(id))) {
                m_channelIds[c] = id;
                break;
            }
        }
    }
}

void CsvCaptureFile::readTimingPoint(int sampleRate, int sampleCount)
{
    m_timingPT = 0;
    int marker = 0;
    int col = 0;
    if (!m_parser.Find_Token(QStringLiteral("**WaveSample****"), marker, col))
        return;
    int r = marker + 1;
    while (r - marker < sampleCount) {
        int hit = 0;
        // The rows of one capture end sampleCount rows after the marker: a counter further
        // down belongs to no sample of it.
        if (!m_parser.Find_Token(QStringLiteral("Samples Transfer Time Counter"), hit, col, 0, r,
                                 marker + sampleCount - 1))
            return;
        if (m_parser.Get_Line(hit)->Token(col + 1).toInt() == m_triggerTimeCounter) {
            const int block = hit - (marker + 1) - 1;
            m_timingPT = static_cast<qint32>(sampleRate / 4.0 - 1.0 + block);
            return;
        }
        r = hit + 1;
    }
}

void CsvCaptureFile::readTransientBlocks()
{
    int start = 0;
    int col = 0;
    if (!m_parser.Find_Token(QStringLiteral("Transient Details Blocks"), start, col))
        return;
    int blockRow = 0;
    if (!m_parser.Find_Token(QStringLiteral("Block 0"), blockRow, col, 0, start))
        return;
    for (int b = 0; b < maxTransientBlocks; ++b) {
        // A block's rows end where the next block starts, so that a row missing from one block
        // is not taken from the next.
        int nextRow = 0;
        const bool hasNext =
            b + 1 < maxTransientBlocks &&
            m_parser.Find_Token(QStringLiteral("Block %1").arg(b + 1), nextRow, col, 0, blockRow);
        const int endRow = hasNext ? nextRow - 1 : 0;
        const auto cells = [&](const char* label, int count) {
            int row = 0;
            int c = 0;
            QStringList values;
            if (m_parser.Find_Token(QString::fromLatin1(label), row, c, 0, blockRow, endRow)) {
                for (int k = 1; k <= count; ++k)
                    values << m_parser.Get_Line(row)->Token(c + k);
            }
            return values;
        };
        const auto flag = [&](const char* label, QString& out) {
            const QStringList values = cells(label, 1);
            if (!values.isEmpty())
                out = withoutApostrophe(values.first());
        };
        const auto phases = [&](const char* label, std::array<qint32, 3>& out) {
            const QStringList values = cells(label, 3);
            for (int p = 0; p < values.size(); ++p)
                out[p] = values.at(p).toInt();
        };
        TransientBlock block;
        const QStringList counter = cells("DSP Transfer Time Counter", 1);
        block.dspTransferTimeCounter = counter.isEmpty() ? 0.0 : counter.first().toDouble();
        flag("HSI_TRANSITION", block.hsiTransition);
        flag("HSI_VALUE_CURRENT", block.hsiValueCurrent);
        flag("HSI_VALUE_PREVIOUS", block.hsiValuePrevious);
        flag("Trans Pos Side Overrange pt flag", block.posOverrangeFlag);
        flag("Trans Neg Side Overrange pt flag", block.negOverrangeFlag);
        phases("Max Tran +Pk Sample Index", block.maxPosIndex);
        phases("Max Tran -Pk Sample Index", block.maxNegIndex);
        phases("Max Tran +Pk Sample Value", block.maxPosValue);
        phases("Max Tran -Pk Sample Value", block.maxNegValue);
        phases("Max Tran +Pk Sample Duration", block.maxPosDuration);
        phases("Max Tran -Pk Sample Duration", block.maxNegDuration);
        m_blocks << block;
        if (!hasNext)
            return;
        blockRow = nextRow;
    }
}

void CsvCaptureFile::readResults()
{
    static const QStringList labels = resultLabels();
    m_results.clear();
    for (const QString& label : labels) {
        int row = 0;
        int col = 0;
        if (!m_parser.Find_Token(label, row, col))
            continue;
        const clsCSVLine* line = m_parser.Get_Line(row);
        ResultRow result{label, {}};
        for (int t = col + 1; t < line->Token_Count(); ++t)
            result.values << line->Token(t);
        m_results << result;
    }
}

void CsvCaptureFile::readLineToLineRows()
{
    m_lineToLine.fill(false);
    int row = 0;
    int col = 0;
    if (!m_parser.Find_Token(QStringLiteral("DSP RMS Block Transfer"), row, col))
        return;
    const clsCSVLine* line = m_parser.Get_Line(row + 2);
    if (clsCSVParser::isLineNothing(line))
        return;
    for (int k = 0; k < 16; ++k) {
        const QString cell = line->Token(col + 2 + k);
        const qsizetype at = cell.indexOf(QLatin1String("id:"), 0, Qt::CaseInsensitive);
        if (at < 0)
            continue;
        const int id = cell.mid(at + 3).trimmed().toInt();
        if (id >= 77 && id <= 79)
            m_lineToLine[id - 77] = true;
    }
}

QStringList CsvCaptureFile::result(const QString& label) const
{
    for (const ResultRow& row : m_results) {
        if (row.label == label)
            return row.values;
    }
    return {};
}

QString CsvCaptureFile::loadSamples(const WaveformRecord& record, WaveformChannels& channels,
                                    LoadProgress* progress) const
{
    channels = WaveformChannels();
    if (m_lineFeedsOnly)
        return userText("506001", "its lines end in a line feed alone, where a capture file ends "
                                  "each line with a carriage return and a line feed");
    int row = 0;
    int col = 0;
    if (!m_parser.Find_Token(QStringLiteral("Waveform Samples Start"), row, col))
        return userText("506002", "it has no \"Waveform Samples Start\" row: it is truncated or "
                                  "not a capture file");
    const qint64 count = record.sampleCount;
    // Every sample is a line of the file: a count the file cannot hold is refused before any
    // array is made for it.
    const qint64 room = qint64(m_parser.Line_Count()) - (row + 1);
    if (count < 1 || count > room)
        return userText("506003", "the record gives %1 samples a channel, but the file has room "
                                  "for %2 sample rows")
            .arg(count)
            .arg(qMax<qint64>(0, room));

    WaveformRecord timed = record;
    timed.transient = m_transient;
    channels.resize(int(count));
    channels.time = WaveformTimeBase::axis(timed, int(count));
    const AdcBlockFactors::Ratios ratios{
        AdcBlockFactors::ratio(record.ptCtRatio[0]), AdcBlockFactors::ratio(record.ptCtRatio[1]),
        AdcBlockFactors::ratio(record.ptCtRatio[2]), AdcBlockFactors::ratio(record.ptCtRatio[3])};
    int nextAnalog = 0;
    QStringList cells;
    for (int k = 0; k < m_channelCount; ++k) {
        const QString& name = m_channelNames.at(k);
        tell(progress, userText("501024", "Reading in the waveform samples for channel ") + name);
        if (progress)
            progress->advance(k, m_channelCount);
        const int read = m_parser.getColumn(col + 4 + k, row + 1, int(count), cells, false);
        if (read < count)
            return userText("506004", "channel %1 ends after %2 of its %3 samples, at line %4")
                .arg(name)
                .arg(read)
                .arg(count)
                .arg(row + 2 + read);
        QVector<double> values(static_cast<qsizetype>(count));
        for (int i = 0; i < count; ++i) {
            bool number = false;
            values[i] = cells.at(i).toDouble(&number);
            if (!number || !std::isfinite(values.at(i)))
                return userText("506005", "line %1 holds \"%2\" as a sample of channel %3, which "
                                          "is not a finite number")
                    .arg(row + 2 + i)
                    .arg(cells.at(i).left(40), name);
        }
        if (name.contains(QLatin1String(" 80 "))) {
            for (int i = 0; i < count; ++i) {
                const int status = int(values.at(i));
                for (int input = 0; input < 8; ++input)
                    channels.samples[WaveformChannels::Input1 + input][i] =
                        float(((status >> input) & 1) + 2 * input);
            }
            for (int input = 0; input < 8; ++input)
                channels.recorded[WaveformChannels::Input1 + input] = true;
            continue;
        }
        if (nextAnalog >= WaveformChannels::analogCount)
            continue;
        const double scale = m_factors.sampleScale(m_channelIds.at(k), ratios);
        QVector<float>& target = channels.samples[nextAnalog];
        for (int i = 0; i < count; ++i)
            target[i] = float(values.at(i) * scale);
        channels.recorded[nextAnalog] = true;
        ++nextAnalog;
    }
    if (progress)
        progress->advance(m_channelCount, m_channelCount);
    return {};
}

} // namespace lorvane
