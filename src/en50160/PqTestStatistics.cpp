// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqTestStatistics.h"

#include "store/WallClock.h"

#include <cmath>
#include <cstring>

namespace lorvane {

PqTestStatistics::Field PqTestStatistics::binField(int number)
{
    if (number == 1)
        return {68, 4};
    if (number >= 2 && number <= 29)
        return {72 + 2 * (number - 2), 2};
    if (number >= 30 && number <= 47)
        return {128 + 4 * (number - 30), 4};
    if (number >= 48 && number <= storedBins)
        return {200 + 2 * (number - 48), 2};
    return {};
}

void PqTestStatistics::writeStamp(int offset, const QDateTime& time)
{
    const QDate day = time.date();
    const QTime clock = time.time();
    const int fields[] = {day.year() / 100, day.year() % 100, day.month(),   day.day(),
                          clock.hour(),     clock.minute(),   clock.second()};
    for (int i = 0; i < 7; ++i)
        m_bytes[size_t(offset + i)] = std::uint8_t(fields[i]);
    m_bytes[size_t(offset + 7)] = 0;
}

QDateTime PqTestStatistics::stampAt(int offset) const
{
    const auto at = [this, offset](int i) { return int(m_bytes[size_t(offset + i)]); };
    const QDate day(at(0) * 100 + at(1), at(2), at(3));
    const QTime clock(at(4), at(5), at(6));
    if (!day.isValid() || !clock.isValid())
        return {};
    return WallClock::at(day, clock);
}

void PqTestStatistics::setPeriod(const QDateTime& start, const QDateTime& end, int nominalFrequency,
                                 double nominalVoltage)
{
    writeStamp(16, start);
    writeStamp(24, end);
    // The field is two bytes wide but a nominal frequency never needs the high one.
    m_bytes[32] = 0;
    m_bytes[33] = std::uint8_t(nominalFrequency & 0xFF);
    std::memcpy(m_bytes.data() + 36, &nominalVoltage, sizeof nominalVoltage);
}

void PqTestStatistics::setParameters(const QVariant& frequencyParameter,
                                     const QVariant& fastVoltageAllowance)
{
    const auto byteOf = [](const QVariant& value) -> std::uint8_t {
        if (value.isNull())
            return 0;
        const double rounded = std::round(value.toDouble());
        return rounded >= 0 && rounded <= 255 ? std::uint8_t(rounded) : 0;
    };
    m_bytes[34] = byteOf(frequencyParameter);
    m_bytes[35] = byteOf(fastVoltageAllowance);
}

bool PqTestStatistics::setBin(int number, const QVariant& value)
{
    const Field field = binField(number);
    if (field.width == 0 || value.isNull())
        return true;
    const double rounded = std::round(value.toDouble());
    if (!(rounded >= 0))
        return true; // negative (or not a number): the meter's "no count", left zero
    const double limit = field.width == 4 ? 4294967295.0 : 65535.0;
    if (rounded > limit)
        return false;
    // Split through an unsigned 64-bit value: a 4-byte count above 2^31 - 1 must stay exact.
    quint64 whole = quint64(rounded);
    for (int i = field.width - 1; i >= 0; --i) {
        m_bytes[size_t(field.offset + i)] = std::uint8_t(whole % 256);
        whole /= 256;
    }
    return true;
}

quint32 PqTestStatistics::unsignedAt(int offset, int width) const
{
    quint32 value = 0;
    for (int i = 0; i < width; ++i)
        value = value * 256 + m_bytes[size_t(offset + i)];
    return value;
}

double PqTestStatistics::nominalVoltage() const
{
    double value = 0;
    std::memcpy(&value, m_bytes.data() + 36, sizeof value);
    return value;
}

} // namespace lorvane
