// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QVariant>
#include <array>
#include <cstdint>

namespace lorvane {

/// The statistics block of one EN 50160 test period: the fixed 400-byte image the pass rules,
/// the charts and the report address by byte position. Counts are big-endian integers of the
/// width their field has; the nominal voltage is a double in the machine's byte order. The
/// image is rebuilt from the meter's test row, so every count is read back through the same
/// field it was written to (a 2-byte field holds at most 65535, a 4-byte one 2^32 - 1).
class PqTestStatistics
{
public:
    static constexpr int size = 400;
    /// `bin_1` to `bin_147` have a place in the image; `bin_148` to `bin_152` are read and
    /// kept nowhere.
    static constexpr int storedBins = 147;
    static constexpr int phases = 3;
    static constexpr int frequencyBins = 10;
    static constexpr int slowVoltageBins = 5;
    static constexpr int fastVoltageBins = 6;
    static constexpr int harmonicOrders = 24; ///< orders 2 to 25

    /// Byte offset and width of `bin_{number}`, number 1..147.
    struct Field
    {
        int offset = 0;
        int width = 0;
    };
    static Field binField(int number);

    /// Writes the stamps (century, year in century, month, day, hour, minute, second, 0), the
    /// nominal frequency (high byte zero) and voltage of the grid row.
    void setPeriod(const QDateTime& start, const QDateTime& end, int nominalFrequency,
                   double nominalVoltage);
    /// `P_Freq` and `P_FVF`, one byte each; a value outside 0..255 leaves its byte zero.
    void setParameters(const QVariant& frequencyParameter, const QVariant& fastVoltageAllowance);
    /// Splits `value` (rounded to a whole number) big-endian into the field of `bin_{number}`.
    /// Null and negative values leave the field zero. Returns false, leaving the field zero,
    /// when the value is more than the field can hold.
    bool setBin(int number, const QVariant& value);

    /// The unsigned big-endian integer of `width` bytes at `offset`.
    quint32 unsignedAt(int offset, int width) const;
    const std::array<std::uint8_t, size>& bytes() const { return m_bytes; }

    QDateTime start() const { return stampAt(16); }
    QDateTime end() const { return stampAt(24); }
    int nominalFrequency() const { return int(unsignedAt(32, 2)); }
    int frequencyParameter() const { return m_bytes[34]; }
    int fastVoltageAllowance() const { return m_bytes[35]; }
    double nominalVoltage() const;

    quint32 headerCount() const { return unsignedAt(68, 4); }
    quint32 n1() const { return unsignedAt(72, 2); }
    quint32 n2() const { return unsignedAt(74, 2); }
    quint32 n3() const { return unsignedAt(76, 2); }
    /// Frequency bin 0..9.
    quint32 frequency(int bin) const { return unsignedAt(78 + 2 * bin, 2); }
    /// Long slow voltage bin 0..4 of phase 0..2.
    quint32 slowVoltage(int phase, int bin) const
    {
        return unsignedAt(98 + 10 * phase + 2 * bin, 2);
    }
    /// Fast voltage bin 0..5 of phase 0..2 (4-byte fields).
    quint32 fastVoltage(int phase, int bin) const
    {
        return unsignedAt(128 + 24 * phase + 4 * bin, 4);
    }
    /// Flicker of phase 0..2: bin 0 "< 1", bin 1 ">= 1".
    quint32 flicker(int phase, int bin) const { return unsignedAt(200 + 4 * phase + 2 * bin, 2); }
    /// Unbalance bin 0 "< 2%", 1 "< 3%", 2 ">= 3%".
    quint32 unbalance(int bin) const { return unsignedAt(212 + 2 * bin, 2); }
    /// Exceed count of harmonic `order` 2..25 on phase 0..2.
    quint32 harmonic(int phase, int order) const
    {
        return unsignedAt(218 + 48 * phase + 2 * (order - 2), 2);
    }
    /// THD exceed count of phase 0..2.
    quint32 thd(int phase) const { return unsignedAt(362 + 2 * phase, 2); }

private:
    QDateTime stampAt(int offset) const;
    void writeStamp(int offset, const QDateTime& time);

    std::array<std::uint8_t, size> m_bytes{};
};

} // namespace lorvane
