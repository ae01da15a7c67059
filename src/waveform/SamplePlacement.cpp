// SPDX-License-Identifier: GPL-3.0-or-later
#include "SamplePlacement.h"

#include "WaveformChannels.h"
#include "WaveformRecord.h"
#include "platform/UserText.h"

#include <QStringView>

namespace lorvane {

namespace {

constexpr int blockLength = 1024;

bool deltaWiring(int wiring)
{
    return wiring == 1 || wiring == 2 || wiring == 4;
}

/// Rate 512 rows are placed and labelled by their format and never reconstructed.
bool wideRate(int sampleRate, int deviceTypeId)
{
    return deviceTypeId != 4 && sampleRate == 512;
}

} // namespace

SamplePlacement::Target SamplePlacement::target(int sampleRate, int recordFormat, int deviceTypeId,
                                                int column)
{
    if (column < 0 || column >= columnCount)
        return {};
    const int rate = deviceTypeId == 4 ? 128 : sampleRate;
    if (rate == 256) {
        if (column > 5)
            return {};
        if (recordFormat == -1)
            return {column, 0};
        if (recordFormat == 0 || recordFormat == 1)
            return {recordFormat * 3 + column / 2, (column % 2) * blockLength};
        return {};
    }
    if (rate == 512) {
        if (recordFormat == -1)
            return column <= 5 ? Target{column, 0} : Target{};
        if (column > 3)
            return {};
        if (recordFormat >= 0 && recordFormat <= 2)
            return {recordFormat, column * blockLength};
        if (recordFormat >= 4 && recordFormat <= 7)
            return {recordFormat - 1, column * blockLength};
        return {};
    }
    return {column, 0};
}

bool SamplePlacement::carries(int sampleRate, int recordFormat, int deviceTypeId, int channel)
{
    for (int column = 0; column < WaveformChannels::analogCount; ++column) {
        if (target(sampleRate, recordFormat, deviceTypeId, column).channel == channel)
            return true;
    }
    return false;
}

void SamplePlacement::place(const WaveformRecord& record,
                            const std::array<QString, columnCount>& columns, int loadChannel,
                            WaveformChannels& channels)
{
    const int count = channels.sampleCount();
    const int wiring = SamplePlacement::wiring(record.hookUp);
    const bool wide = wideRate(record.sampleRate, record.deviceTypeId);
    const bool reconstruct = !wide && deltaWiring(wiring);
    const bool partial = loadChannel >= 0;
    // Phase voltages of a delta wiring wait here until the line voltages are formed.
    std::array<QVector<float>, 3> phase;
    for (QVector<float>& p : phase)
        p.fill(0.0F, count);
    bool voltagesRead = false;
    bool currentsRead = false;

    for (int column = 0; column < columnCount; ++column) {
        const QString& text = columns.at(column);
        if (text.isEmpty() || text == QLatin1String("N/A"))
            continue;
        if (partial && column >= WaveformChannels::analogCount)
            break;
        const Target to =
            target(record.sampleRate, record.recordFormat, record.deviceTypeId, column);
        if (to.channel < 0 || (partial && group(to.channel) != group(loadChannel)))
            continue;
        const bool input = to.channel >= WaveformChannels::Input1;
        const bool held = reconstruct && to.channel < 3;
        QVector<float>& out = held ? phase[to.channel] : channels.samples[to.channel];
        const float lane = input ? float(2 * (to.channel - WaveformChannels::Input1)) : 0.0F;
        int i = to.offset;
        for (QStringView value : QStringView(text).split(u'\r')) {
            if (i >= count)
                break;
            value = value.trimmed();
            out[i++] = input ? float(value.toInt() & 0xFF) + lane : value.toFloat();
        }
        if (!held)
            channels.recorded[to.channel] = true;
        voltagesRead = voltagesRead || to.channel < 3;
        currentsRead = currentsRead || (to.channel >= 3 && to.channel < 6);
    }

    if (reconstruct && voltagesRead) {
        for (int c = 0; c < 3; ++c) {
            QVector<float>& out = channels.samples[c];
            const QVector<float>& from = phase[c];
            const QVector<float>& minus = phase[(c + 1) % 3];
            for (int i = 0; i < count; ++i)
                out[i] = from.at(i) - minus.at(i);
            channels.recorded[c] = true;
        }
    }
    if (!wide && wiring == 2 && currentsRead) {
        QVector<float>& ib = channels.samples[WaveformChannels::Ib];
        const QVector<float>& ia = channels.samples[WaveformChannels::Ia];
        const QVector<float>& ic = channels.samples[WaveformChannels::Ic];
        for (int i = 0; i < count; ++i)
            ib[i] = -ia.at(i) - ic.at(i);
        channels.recorded[WaveformChannels::Ib] = true;
    }
}

std::array<QString, SamplePlacement::columnCount>
SamplePlacement::labels(const WaveformRecord& record)
{
    const int wiring = SamplePlacement::wiring(record.hookUp);
    const bool lineVoltages = wiring == 1 || wiring == 2 || wiring == 4 || wiring == 5;
    const QString notAvailable = userText("501030", "N/A");
    std::array<QString, columnCount> labels{
        lineVoltages ? userText("501031", "Vab") : userText("501034", "Van"),
        lineVoltages ? userText("501032", "Vbc") : userText("501035", "Vbn"),
        lineVoltages ? userText("501033", "Vca") : userText("501036", "Vcn"),
        userText("501037", "Ia"),
        wiring == 6 ? notAvailable : userText("501038", "Ib"),
        userText("501039", "Ic"),
        userText("501040", "In"),
    };
    // A capture file fills the channels in the order it lists them, not by a record format.
    const bool wide = wideRate(record.sampleRate, record.deviceTypeId) && record.deviceTypeId != 5;
    if (!wide && wiring == 2)
        labels[WaveformChannels::Ib] += QLatin1Char(' ') + userText("501041", "(reconstructed)");
    if (wide) {
        for (int c = 0; c < WaveformChannels::analogCount; ++c) {
            if (labels[c] != notAvailable &&
                !carries(record.sampleRate, record.recordFormat, record.deviceTypeId, c))
                labels[c] += userText("501042", "-N/A");
        }
    }
    if (record.deviceTypeId == 0)
        labels[WaveformChannels::In] += userText("501043", " (N/A for Talmo)");
    for (int k = 0; k < 8; ++k) {
        const QString& label = record.inputLabels.at(k);
        labels[WaveformChannels::Input1 + k] =
            label.isEmpty() ? userText("501044", "Input %1").arg(k + 1) : label;
    }
    return labels;
}

} // namespace lorvane
