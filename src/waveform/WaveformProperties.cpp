// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformProperties.h"

#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

namespace {

int wiring(qint32 hookUp)
{
    return hookUp & 0xFF;
}

QString number(double value)
{
    return QString::number(value, 'f', 2);
}

QString stamp(const QDateTime& time, double ms)
{
    if (!time.isValid())
        return QString();
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) +
           QStringLiteral(".%1").arg(qRound(ms * 10), 4, 10, QLatin1Char('0'));
}

/// Wirings without a neutral conductor, where a neutral current does not exist.
bool isDelta(qint32 hookUp)
{
    const int w = wiring(hookUp);
    return w == 1 || w == 2 || w == 4 || w == 5;
}

} // namespace

QString WaveformProperties::hookupText(qint32 hookUp, qint32 deviceTypeId)
{
    const bool talmo = deviceTypeId == 0;
    switch (wiring(hookUp)) {
    case 0:
        return userText("503000", "Wye");
    case 1:
        return talmo ? userText("503002", "Delta, 2 CTs") : userText("503001", "Delta, 3 CTs");
    case 2:
        return talmo ? userText("503003", "2.5 Element") : userText("503002", "Delta, 2 CTs");
    case 3:
        return userText("503003", "2.5 Element");
    case 4:
        return userText("503004", "4-Wire Delta");
    case 5:
        return userText("503005", "Open Delta");
    case 6:
        return userText("503006", "45S, Wye, 2 CTs");
    default:
        return QString();
    }
}

QString WaveformProperties::hookupLabel()
{
    return userText("503033", "Hookup");
}

QString WaveformProperties::hookupPicture(qint32 hookUp, qint32 deviceTypeId)
{
    const bool talmo = deviceTypeId == 0;
    switch (wiring(hookUp)) {
    case 0:
        return QStringLiteral("WWye");
    case 1:
        return QStringLiteral("WDelta");
    case 2:
        return talmo ? QStringLiteral("W25Element") : QStringLiteral("WDelta2");
    case 3:
        return QStringLiteral("W25Element");
    case 4:
        return QStringLiteral("WDeltaB");
    default:
        return QString();
    }
}

QString WaveformProperties::captureItems(const WaveformRecord& record)
{
    const QString volts = QStringLiteral("V a, b, c");
    const QString amps = QStringLiteral("I a, b, c");
    const QStringList names{
        QStringLiteral("Va"), QStringLiteral("Vb"), QStringLiteral("Vc"), QString(),
        QStringLiteral("Ia"), QStringLiteral("Ib"), QStringLiteral("Ic"), QStringLiteral("In")};
    const qint32 format = record.recordFormat;
    QStringList items;
    if (record.sampleRate == 256 && record.deviceTypeId != 4 && format != -1) {
        if (format == 0)
            items << volts;
        else if (format == 1)
            items << amps;
    } else if (record.sampleRate == 512 && record.deviceTypeId != 4 && format != -1) {
        if (format >= 0 && format < names.size() && !names.at(format).isEmpty())
            items << names.at(format);
    } else {
        items << volts << amps;
        // Rows of rates up to 128 carry the neutral current too, except on the family without it.
        if (record.sampleRate <= 128 && record.deviceTypeId != 0)
            items << QStringLiteral("In");
    }
    return items.join(QStringLiteral(", "));
}

QString WaveformProperties::rmsText(const WaveformRecord& record, int column)
{
    const bool neutral = column == 8;
    const bool unmeasuredIb = column == 5 && wiring(record.hookUp) == 6;
    if ((neutral && (isDelta(record.hookUp) || record.deviceTypeId == 0)) || unmeasuredIb)
        return userText("503010", "Not measured");
    const double value = record.rmsValues.at(column);
    if (std::isnan(value))
        return userText("503011", "N/A");
    return number(value);
}

QList<WaveformProperties::Row> WaveformProperties::rows(const WaveformRecord& record,
                                                        const std::optional<WavePqEvent>& pq)
{
    QList<Row> out;
    auto add = [&out](const char* id, const char* name, const QString& value) {
        if (!value.isEmpty())
            out.append({userText(id, name), value});
    };
    auto positive = [](double value) { return value > 0 ? number(value) : QString(); };

    add("503020", "Device", record.hardwareName);
    add("503021", "Waveform Trigger Date/Time", stamp(record.wtTime, record.wtMs));
    add("503022", "Cause", record.triggeredBy);
    add("503023", "Waveform Start", record.waveStartText);
    add("503024", "Waveform End", record.waveEndText);
    add("503025", "Waveform Duration ms", record.durationText);
    if (pq) {
        add("503026", "PQ Start", pq->start);
        add("503027", "PQ End", pq->end);
        add("503028", "PQ Duration ms", pq->durationMs);
        add("503029", "PQ Channel", pq->channel);
        add("503030", "PQ Condition", pq->condition);
        add("503031", "PQ Value", pq->value);
        add("503032", "PQ % of Full Scale", pq->percentOfFullScale);
    }
    const QString hookup = hookupText(record.hookUp, record.deviceTypeId);
    if (!hookup.isEmpty())
        out.append({hookupLabel(), hookup});
    // The bit above the wiring byte tells that the meter carries the battery back-up module.
    add("503068", "B-Pack Module",
        record.hookUp & bPackBit ? userText("503048", "Yes") : userText("503049", "No"));
    add("503035", "PT Ratio", record.ptCtRatio[0]);
    add("503036", "PT_aux Ratio", record.ptCtRatio[1]);
    add("503037", "CT Ratio", record.ptCtRatio[2]);
    add("503038", "CTn Ratio", record.ptCtRatio[3]);
    add("503039", "Sampling Rate",
        record.sampleRate > 0 ? QString::number(record.sampleRate) : QString());
    add("503040", "Capture Item(s)", captureItems(record));
    add("503041", "Number of waveform captures",
        record.captureNum > 0 ? QString::number(record.captureNum) : QString());
    add("503042", "Total captured points",
        record.sampleCount > 0 ? QString::number(record.sampleCount) : QString());
    add("503043", "Points in trigger cycle",
        record.pointsInCycle > 0 ? QString::number(record.pointsInCycle) : QString());
    add("503044", "Timing point", QString::number(record.timingPT));
    add("503045", "Waveform number", QString::number(record.waveformNumber));
    add("503046", "Triggered by waveform", QString::number(record.waveformTriggerNumber));
    add("503047", "Contiguous",
        record.contiguous ? userText("503048", "Yes") : userText("503049", "No"));
    add("503050", "Capture Sequence", QString::number(record.captureSequence));

    static constexpr std::array<const char*, 12> rmsNames{
        "Van RMS", "Vbn RMS", "Vcn RMS", "Vaux RMS", "Ia RMS",  "Ib RMS",
        "Ic RMS",  "Inm RMS", "In RMS",  "Vab RMS",  "Vbc RMS", "Vca RMS"};
    static constexpr std::array<const char*, 12> rmsIds{"503051", "503052", "503053", "503054",
                                                        "503055", "503056", "503057", "503058",
                                                        "503059", "503060", "503061", "503062"};
    for (int column = 0; column < 12; ++column)
        add(rmsIds.at(column), rmsNames.at(column), rmsText(record, column));

    // FullScale5 is the rated current: the only current full scale the settings keep.
    add("503063", "Full Scale: Vln", positive(record.fullScale[0]));
    add("503064", "Full Scale: Vaux", positive(record.fullScale[1]));
    add("503065", "Full Scale: Vpp", positive(record.fullScale[3]));
    add("503066", "Full Scale: I", positive(record.fullScale[4]));
    if (!isDelta(record.hookUp))
        add("503067", "Full Scale: In", positive(record.fullScale[4]));
    return out;
}

QString WaveformProperties::clipboardText(const QList<Row>& rows)
{
    QStringList lines;
    for (const Row& row : rows)
        lines << row.first + u'\t' + row.second;
    return lines.join(u'\n') + u'\n';
}

} // namespace lorvane
