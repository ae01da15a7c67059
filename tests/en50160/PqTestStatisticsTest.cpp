// SPDX-License-Identifier: GPL-3.0-or-later
// The byte image of a test row: stamps, big-endian counts of each field width, values left
// zero, and the 4-byte fields up to 2^32 - 1.
#include "StatisticsBuilder.h"
#include "store/WallClock.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::Bins;

namespace {

QByteArray bytesAt(const PqTestStatistics& s, int offset, int count)
{
    return QByteArray(reinterpret_cast<const char*>(s.bytes().data()) + offset, count);
}

} // namespace

TEST(PqTestStatistics, PeriodStampsFrequencyAndVoltage)
{
    PqTestStatistics s;
    s.setPeriod(WallClock::at({2024, 3, 4}, {0, 0, 0}), WallClock::at({2031, 12, 25}, {23, 59, 58}),
                60, 230.5);
    EXPECT_EQ(bytesAt(s, 16, 8), QByteArray::fromHex("1418030400000000"));
    EXPECT_EQ(bytesAt(s, 24, 8), QByteArray::fromHex("141f0c19173b3a00"));
    EXPECT_EQ(bytesAt(s, 32, 2), QByteArray::fromHex("003c"));
    double voltage = 230.5;
    EXPECT_EQ(bytesAt(s, 36, 8), QByteArray(reinterpret_cast<const char*>(&voltage), 8));
    EXPECT_EQ(s.start(), WallClock::at({2024, 3, 4}, {0, 0, 0}));
    EXPECT_EQ(s.end(), WallClock::at({2031, 12, 25}, {23, 59, 58}));
    EXPECT_EQ(s.nominalVoltage(), 230.5);
    EXPECT_EQ(bytesAt(s, 0, 16), QByteArray(16, '\0'));
}

TEST(PqTestStatistics, CountsSplitBigEndianByFieldWidth)
{
    struct Case
    {
        const char* name;
        int bin;
        double value;
        int offset;
        const char* hex; ///< the field after the write
        bool fits;
    };
    const Case cases[] = {
        {"header count, 4 bytes", 1, 604800, 68, "00093a80", true},
        {"N1, 2 bytes", Bins::n1, 24660, 72, "6054", true},
        {"2-byte maximum", Bins::n3, 65535, 76, "ffff", true},
        {"2-byte one past", Bins::n3, 65536, 76, "0000", false},
        {"frequency bin 9, last 2-byte field before the 4-byte ones", Bins::frequency(9), 258, 96,
         "0102", true},
        {"slow voltage C bin 4", Bins::slow(2, 4), 1, 126, "0001", true},
        {"fast voltage A bin 0, 4 bytes", Bins::fast(0, 0), 2147483648.0, 128, "80000000", true},
        {"fast voltage C bin 5 at 2^32 - 1", Bins::fast(2, 5), 4294967295.0, 196, "ffffffff", true},
        {"fast voltage one past 2^32 - 1", Bins::fast(2, 5), 4294967296.0, 196, "00000000", false},
        {"negative value left zero", Bins::flicker(0, 0), -5, 200, "0000", true},
        {"fraction rounded", Bins::unbalance(0), 9.6, 212, "000a", true},
        {"harmonic order 2 phase A", Bins::harmonic(0, 2), 7, 218, "0007", true},
        {"harmonic order 25 phase C", Bins::harmonic(2, 25), 9, 360, "0009", true},
        {"THD phase C", Bins::thd(2), 300, 366, "012c", true},
        {"bin 147, the last stored", 147, 513, 398, "0201", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        PqTestStatistics s;
        EXPECT_EQ(s.setBin(c.bin, c.value), c.fits);
        const QByteArray expected = QByteArray::fromHex(c.hex);
        EXPECT_EQ(bytesAt(s, c.offset, int(expected.size())), expected);
        // Nothing else of the image moved.
        int others = 0;
        for (int i = 0; i < PqTestStatistics::size; ++i) {
            if (i < c.offset || i >= c.offset + expected.size())
                others += s.bytes()[size_t(i)];
        }
        EXPECT_EQ(others, 0);
    }
}

TEST(PqTestStatistics, BinsBeyondTheImageAndParametersOutOfRange)
{
    PqTestStatistics s;
    EXPECT_TRUE(s.setBin(148, 99));
    EXPECT_TRUE(s.setBin(152, 99));
    s.setParameters(256, -1);
    EXPECT_EQ(s.bytes(), PqTestStatistics().bytes());
    s.setParameters(1, 255);
    EXPECT_EQ(s.frequencyParameter(), 1);
    EXPECT_EQ(s.fastVoltageAllowance(), 255);
}
