// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformTimeBase.h"

#include "BankersRounding.h"
#include "WaveformRecord.h"

#include <QString>
#include <cmath>

namespace lorvane {

namespace {

constexpr int captureFileDevice = 5;

bool captureFile(const WaveformRecord& record)
{
    return record.deviceTypeId == captureFileDevice;
}

} // namespace

double WaveformTimeBase::stepMs(const WaveformRecord& record)
{
    if (record.sampleRate < 1)
        return 0.0;
    if (captureFile(record)) {
        const double base = 1.0 / 61440.0;
        const double perCycle = record.transient ? 1024.0 : double(record.sampleRate);
        return base * (1024.0 / perCycle) * 1000.0;
    }
    const double cycles = record.deviceTypeId == 0 && record.systemFrequency == 50 ? 50.0 : 60.0;
    return double(float(1.0 / record.sampleRate / cycles * 1000.0));
}

QVector<float> WaveformTimeBase::axis(const WaveformRecord& record, int count)
{
    QVector<float> values(qMax(0, count));
    const double step = stepMs(record);
    const int decimals = captureFile(record) ? 3 : 2;
    for (int i = 0; i < values.size(); ++i)
        values[i] = QString::number(double(i) * step, 'f', decimals).toFloat();
    return values;
}

int WaveformTimeBase::sampleAt(const WaveformRecord& record, double ms)
{
    const double step = stepMs(record);
    if (!(step > 0) || !std::isfinite(ms) || ms < 0)
        return 0;
    return BankersRounding::toInt(ms / step);
}

} // namespace lorvane
