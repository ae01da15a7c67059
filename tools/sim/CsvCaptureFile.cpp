// SPDX-License-Identifier: GPL-3.0-or-later
#include "CsvCaptureFile.h"

#include "CaptureSettingsWriter.h"
#include "CaptureSignal.h"
#include "SimMeter.h"
#include "platform/StorageError.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <cmath>

namespace lorvane::sim {

namespace {

// The factors a file of this family carries in its "DSP ADC Block Factors" rows.
constexpr double firstSet[9] = {0.098401062, 0.098401062, 0.098401062, 0.098401062, 0.098401062,
                                0.098401062, 0.098401062, 0.196802124, 0.012363048};
constexpr double secondSet[9] = {0.049200531, 0.049200531, 0.049200531, 0.049200531, 0.049200531,
                                 0.003090762, 0.003090762, 0.003090762, 0.003090762};
constexpr int statusChannelId = 80;

const char* const channelNames[] = {"Va", "Vb", "Vc", "Ia", "Ib", "Ic", "In"};

QByteArray number(double v, int decimals)
{
    return QByteArray::number(v, 'f', decimals);
}

/// A line of labelled cells, ended the way the reader splits lines.
QByteArray line(std::initializer_list<QByteArray> cells)
{
    QByteArray text;
    bool first = true;
    for (const QByteArray& cell : cells) {
        if (!first)
            text += ',';
        text += cell;
        first = false;
    }
    return text + "\r\n";
}

QByteArray flags(bool on)
{
    return on ? "'0000000000000001" : "'0000000000000000";
}

} // namespace

double CsvCaptureFile::countScale(const SimMeter& meter, int id, bool withBlock)
{
    const double pt = CaptureSettingsWriter::ratio(CaptureSettingsWriter::ptRatioText(meter));
    const double ct = CaptureSettingsWriter::ratio(CaptureSettingsWriter::ctRatioText(meter));
    if (id <= 5)
        return (withBlock ? firstSet[0] : 3223.92 / 32768.0) * pt;
    if (id <= 39)
        return (withBlock ? secondSet[5] : 100.0 / 32768.0) * ct;
    const double ctn = CaptureSettingsWriter::ratio(CaptureSettingsWriter::ctnRatioText(meter));
    return (withBlock ? secondSet[8] : 100.0 / 32768.0) * ctn;
}

int CsvCaptureFile::triggerCounter(const PlannedCapture& capture)
{
    return 100000 + 7919 * capture.firstWaveformNumber;
}

void CsvCaptureFile::write(const SimMeter& meter, const PlannedCapture& capture,
                           const CaptureSignal& signal)
{
    const QString path =
        QDir(meter.folder).filePath(QString(capture.csvPath()).replace(QLatin1Char('\\'), '/'));
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        throw StorageError(StorageError::Kind::ReadOnly, path,
                           QStringLiteral("cannot create the capture file's folder"));

    const int rate = capture.setting.sampleRate;
    const int count = capture.sampleCount();
    const bool transient = capture.transient;
    const int counter = triggerCounter(capture);
    QVector<double> scale(CaptureSignal::analogChannels);
    for (int k = 0; k < CaptureSignal::analogChannels; ++k)
        scale[k] = countScale(meter, channelIds[k], transient);
    auto counts = [&](int channel, int i) {
        return std::lround(signal.value(channel, i) / scale[channel]);
    };

    QByteArray text;
    text.reserve(count * 64 + 8192);
    text +=
        line({transient ? "Transient Capture" : "Waveform Capture", meter.hardwareName.toUtf8()});
    text += line({"Sample Rate", QByteArray::number(rate)});
    text += line({"Num Channels", QByteArray::number(CaptureSignal::analogChannels + 1)});
    for (int k = 0; k < CaptureSignal::analogChannels; ++k)
        text +=
            line({"Channel " + QByteArray::number(k),
                  QByteArray(channelNames[k]) + " [ID:" + QByteArray::number(channelIds[k]) + "]"});
    text += line({"Channel " + QByteArray::number(CaptureSignal::analogChannels),
                  "Status 80 HSI [ID:" + QByteArray::number(statusChannelId) + "]"});
    text += line({"Trigger Time Counter", QByteArray::number(counter)});

    if (transient) {
        // Peak of each phase over the capture, in counts, and how long it stayed above half.
        QByteArray index[2][3], value[2][3], duration[2][3];
        for (int p = 0; p < 3; ++p) {
            long high = 0, low = 0;
            int highAt = 0, lowAt = 0;
            for (int i = 0; i < count; ++i) {
                const long c = counts(p, i);
                if (c > high) {
                    high = c;
                    highAt = i;
                }
                if (c < low) {
                    low = c;
                    lowAt = i;
                }
            }
            int highFor = 0, lowFor = 0;
            for (int i = highAt; i < count && counts(p, i) * 2 > high; ++i)
                ++highFor;
            for (int i = lowAt; i < count && counts(p, i) * 2 < low; ++i)
                ++lowFor;
            index[0][p] = QByteArray::number(highAt);
            index[1][p] = QByteArray::number(lowAt);
            value[0][p] = QByteArray::number(qint64(high));
            value[1][p] = QByteArray::number(qint64(low));
            duration[0][p] = QByteArray::number(highFor);
            duration[1][p] = QByteArray::number(lowFor);
        }
        text += line({"Transient Details Blocks", "1"});
        text += line({"Block 0"});
        text += line({"DSP Transfer Time Counter", QByteArray::number(counter)});
        text += line({"HSI_TRANSITION", flags(true)});
        text += line({"HSI_VALUE_CURRENT", flags(true)});
        text += line({"HSI_VALUE_PREVIOUS", flags(false)});
        text += line({"Trans Pos Side Overrange pt flag", flags(false)});
        text += line({"Trans Neg Side Overrange pt flag", flags(false)});
        const char* sides[2] = {"+", "-"};
        for (int s = 0; s < 2; ++s) {
            const QByteArray prefix = QByteArray("Max Tran ") + sides[s] + "Pk Sample ";
            text += line({prefix + "Index", index[s][0], index[s][1], index[s][2]});
            text += line({prefix + "Value", value[s][0], value[s][1], value[s][2]});
            text += line({prefix + "Duration", duration[s][0], duration[s][1], duration[s][2]});
        }
    }

    // One-cycle results of the first cycle, in volts and amps.
    for (int k = 0; k < CaptureSignal::analogChannels; ++k) {
        double sum = 0.0, squares = 0.0;
        for (int i = 0; i < rate; ++i) {
            const double v = signal.value(k, i);
            sum += v;
            squares += v * v;
        }
        const QByteArray n = QByteArray::number(k);
        text += line({"One Cycle RMS [" + n + "]", number(std::sqrt(squares / rate), 3)});
        text += line({"One Cycle Mean [" + n + "]", number(sum / rate, 3)});
    }
    text += line({"Period Count", QByteArray::number(count / rate)});
    text += line({"Cycle Completed Count", QByteArray::number(count / rate)});
    text += line({"Ref Sample Index", QByteArray::number(capture.triggerSample)});
    text += line({"Abs Sample Index", QByteArray::number(capture.triggerSample)});
    const bool event = capture.disturbance >= 0 && !transient;
    const bool sag =
        event && meter.model->disturbances().at(capture.disturbance).residualPercent < 100.0;
    text += line({"Voltage RMS Sag Flags", flags(sag)});
    text += line({"Voltage RMS Surge Flags", flags(event && !sag)});

    if (transient) {
        // The reader takes nine cells of column 3 from two rows below the label, and nine
        // more from twelve rows below.
        text += line({"DSP ADC Block Factors"});
        text += line({"", "Set", "Position", "Factor"});
        for (int s = 0; s < 2; ++s) {
            for (int p = 0; p < 9; ++p)
                text += line({"", QByteArray::number(s + 1), QByteArray::number(p + 1),
                              number(s == 0 ? firstSet[p] : secondSet[p], 9)});
            if (s == 0)
                text += line({"", "Set", "Position", "Factor"});
        }
    }

    // The trigger sample is told by which transfer row carries the trigger counter: the
    // reader counts rows below "**WaveSample****" and adds a quarter cycle less one.
    const int block = capture.triggerSample - (rate / 4 - 1);
    text += line({"**WaveSample****"});
    for (int j = 0; j <= block + 1; ++j)
        text +=
            line({"Samples Transfer Time Counter", QByteArray::number(counter - (block + 1) + j)});

    QByteArray header = "Waveform Samples Start,Time ms,Cycle,Flags";
    for (const char* name : channelNames)
        header += QByteArray(",") + name;
    text += header + ",Status\r\n";
    for (int i = 0; i < count; ++i) {
        QByteArray row = QByteArray::number(i) + ',' + number(i * capture.stepMs, 3) + ',' +
                         QByteArray::number(i / rate) + ",0";
        for (int k = 0; k < CaptureSignal::analogChannels; ++k)
            row += ',' + QByteArray::number(qint64(counts(k, i)));
        int status = 0;
        for (int k = 0; k < CaptureSignal::inputChannels; ++k)
            status |= int(signal.value(CaptureSignal::analogChannels + k, i)) << k;
        text += row + ',' + QByteArray::number(status) + "\r\n";
    }

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw StorageError(StorageError::Kind::ReadOnly, path, file.errorString());
}

} // namespace lorvane::sim
