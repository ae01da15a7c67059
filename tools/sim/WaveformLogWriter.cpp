// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformLogWriter.h"

#include "CaptureDayTables.h"
#include "CapturePlan.h"
#include "CaptureSignal.h"
#include "CsvCaptureFile.h"
#include "SampleText.h"
#include "SimMeter.h"

namespace lorvane::sim {

namespace {

constexpr int captureFileDevice = 5;
constexpr int fixedLengthDevice = 4;
const char* const phaseNames[] = {"Van", "Vbn", "Vcn"};

/// Where one sample column of a row comes from: `count` samples of `channel` starting at
/// `offset` within the row's stretch of the capture.
struct ColumnSource
{
    int column;
    int channel;
    int offset;
    int count;
};

/// The columns a row carries for a rate and record format, the inverse of the placement a
/// reader applies.
QList<ColumnSource> columnSources(const PlannedCapture& capture, int deviceTypeId)
{
    const int rate = capture.setting.sampleRate;
    const int format = capture.setting.recordFormat;
    const int perRow = capture.samplesPerRow;
    QList<ColumnSource> sources;
    if (rate <= 128 || deviceTypeId == fixedLengthDevice) {
        for (int c = 0; c < CaptureSignal::analogChannels + CaptureSignal::inputChannels; ++c)
            sources << ColumnSource{c, c, 0, perRow};
    } else if (format == -1) {
        for (int c = 0; c < 6; ++c)
            sources << ColumnSource{c, c, 0, perRow};
    } else if (rate == 256) {
        // Format 0 voltages, 1 currents: each channel in two columns of 1024 samples.
        const int first = format == 0 ? 0 : 3;
        for (int c = 0; c < 6; ++c)
            sources << ColumnSource{c, first + c / 2, (c % 2) * 1024, 1024};
    } else {
        // Rate 512, one channel in four columns of 1024: formats 0..2 Va..Vc, 4..6 Ia..Ic,
        // 7 In.
        const int channel = format <= 2 ? format : format <= 6 ? format - 1 : 6;
        for (int c = 0; c < 4; ++c)
            sources << ColumnSource{c, channel, c * 1024, 1024};
    }
    return sources;
}

QString triggerText(const SimMeter& meter, const PlannedCapture& capture)
{
    if (capture.disturbance < 0)
        return QStringLiteral("Periodic");
    const Disturbance& d = meter.model->disturbances().at(capture.disturbance);
    const char* kind = d.kind == Disturbance::Kind::Transient ? "Transient"
                       : d.kind == Disturbance::Kind::Swell   ? "Swell"
                                                              : "Sag";
    return QStringLiteral("%1 %2").arg(QLatin1String(phaseNames[d.channel]), QLatin1String(kind));
}

/// `Mode`: 0 periodic, 1 RMS event, 2 transient.
int captureMode(const PlannedCapture& capture)
{
    if (capture.disturbance < 0)
        return 0;
    return capture.transient ? 2 : 1;
}

bool inSet(const PlannedCapture& capture, WaveformSet set)
{
    switch (set) {
    case WaveformSet::EventCaptures:
        return !capture.transient;
    case WaveformSet::Transients:
        return capture.transient;
    default:
        return true;
    }
}

} // namespace

void WaveformLogWriter::write(const SimMeter& meter, WaveformSet set)
{
    const CapturePlan plan(meter);
    CaptureDayTables days(meter, LogKind::Waveform);
    const bool captureFiles = meter.deviceTypeId == captureFileDevice;

    for (const PlannedCapture& capture : plan.captures()) {
        if (!inSet(capture, set))
            continue;
        const CaptureSignal signal(meter, capture);
        if (captureFiles)
            CsvCaptureFile::write(meter, capture, signal);
        const std::array<double, 12> rms = signal.rmsColumns();
        const int rate = capture.setting.sampleRate;
        const QList<ColumnSource> sources = columnSources(capture, meter.deviceTypeId);

        for (int r = 0; r < capture.setting.rows; ++r) {
            const int firstSample = r * capture.samplesPerRow;
            const CaptureStamp start = capture.sampleTime(firstSample);
            const CaptureStamp end = capture.sampleTime(firstSample + capture.samplesPerRow - 1);
            QVariantMap row{
                {QStringLiteral("Index"), capture.setting.index},
                {QStringLiteral("RecCounter"), capture.firstRecCounter + r},
                {QStringLiteral("Date/Time"), start.text()},
                {QStringLiteral("ms"), days.msValue(start.ms)},
                {QStringLiteral("WSDT"), start.text()},
                {QStringLiteral("WSms"), days.msValue(start.ms)},
                {QStringLiteral("WSDTmode"), 0},
                {QStringLiteral("WEDT"), end.text()},
                {QStringLiteral("WEms"), days.msValue(end.ms)},
                {QStringLiteral("WEDTmode"), 0},
                {QStringLiteral("WDuration"), end.msSince(start)},
                {QStringLiteral("WTDate/Time"), capture.trigger.text()},
                {QStringLiteral("WTms"), days.msValue(capture.trigger.ms)},
                {QStringLiteral("WTDTmode"), 0},
                {QStringLiteral("TriggeredBy1"), triggerText(meter, capture)},
                {QStringLiteral("WaveformNumber"), capture.firstWaveformNumber + r},
                {QStringLiteral("WaveformTriggerNumber"), capture.firstWaveformNumber},
                {QStringLiteral("OrigWNumber"), capture.firstWaveformNumber + r},
                {QStringLiteral("Contiguous"), r > 0 ? -1 : 0},
                {QStringLiteral("CaptureSequence"), r},
                {QStringLiteral("SampleRate"), rate},
                {QStringLiteral("SampleInTriggerCyc"), rate},
                {QStringLiteral("EndTriggerCycPT"), capture.triggerSample + rate - 1},
                {QStringLiteral("TimingPT"), capture.triggerSample},
                {QStringLiteral("Mode"), captureMode(capture)},
                {QStringLiteral("OrigFirstWave"), capture.firstWaveformNumber},
                {QStringLiteral("OrigFirstSample"), firstSample},
            };
            for (int v = 0; v < 12; ++v)
                row.insert(QStringLiteral("V%1").arg(v), rms[v]);

            if (captureFiles) {
                row.insert(QStringLiteral("sample0"), capture.csvPath());
                row.insert(QStringLiteral("sample1"), QStringLiteral("%1,%2,%3")
                                                          .arg(rate)
                                                          .arg(capture.sampleCount())
                                                          .arg(CaptureSignal::analogChannels + 1));
            } else {
                for (const ColumnSource& source : sources) {
                    QString text = SampleText::notCaptured();
                    if (source.channel >= CaptureSignal::analogChannels ||
                        signal.measured(source.channel)) {
                        QList<double> values(source.count);
                        for (int i = 0; i < source.count; ++i)
                            values[i] =
                                signal.value(source.channel, firstSample + source.offset + i);
                        text = SampleText::join(
                            values, source.channel >= CaptureSignal::analogChannels ? 0 : 3);
                    }
                    row.insert(QStringLiteral("sample%1").arg(source.column), text);
                }
            }
            days.add(row, start, end);
        }
    }
    days.write();
}

} // namespace lorvane::sim
