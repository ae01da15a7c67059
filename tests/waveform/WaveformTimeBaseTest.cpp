// SPDX-License-Identifier: GPL-3.0-or-later
// The one road from a time to a sample. Fault 1: the window read the step back from the rounded
// axis (0.03 ms in place of 0.032552 at 512 samples a cycle) and analysed sample 3333 for a click
// at 100 ms; the command line took a third step. Every axis value must lead back to its sample.
#include "waveform/WaveformTimeBase.h"

#include "waveform/WaveformRecord.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

struct TimeCase
{
    int deviceTypeId;
    int sampleRate;
    int systemFrequency;
    bool transient;
    double stepMs;
    float secondValue; // the axis value of sample 1
    int sampleAt100ms;
};

WaveformRecord recordOf(const TimeCase& c)
{
    WaveformRecord record;
    record.deviceTypeId = c.deviceTypeId;
    record.sampleRate = qint16(c.sampleRate);
    record.systemFrequency = c.systemFrequency;
    record.transient = c.transient;
    return record;
}

} // namespace

TEST(WaveformTimeBase, Fault1EveryAxisValueLeadsBackToItsOwnSampleAtEveryRate)
{
    const TimeCase cases[] = {
        {3, 16, 60, false, 1.0416666269302368, 1.04F, 96},
        {3, 32, 60, false, 0.5208333134651184, 0.52F, 192},
        {3, 64, 60, false, 0.2604166567325592, 0.26F, 384},
        {3, 128, 60, false, 0.1302083283662796, 0.13F, 768},
        {3, 256, 60, false, 0.0651041641831398, 0.07F, 1536},
        {3, 512, 60, false, 0.0325520820915699, 0.03F, 3072},
        // Only device type 0 follows a 50 Hz system; the others stay on a 60 Hz base.
        {0, 32, 50, false, 0.625, 0.63F, 160},
        {3, 32, 50, false, 0.5208333134651184, 0.52F, 192},
        // Capture files: 1/61440 s x 1024 / rate, three decimals; a transient file runs at
        // 1024 a cycle whatever its rate.
        {5, 128, 60, false, 1000.0 / 61440.0 * 8.0, 0.130F, 768},
        {5, 512, 60, false, 1000.0 / 61440.0 * 2.0, 0.033F, 3072},
        {5, 128, 60, true, 1000.0 / 61440.0, 0.016F, 6144},
    };
    for (const TimeCase& c : cases) {
        const WaveformRecord record = recordOf(c);
        SCOPED_TRACE(testing::Message() << "type " << c.deviceTypeId << " rate " << c.sampleRate
                                        << " transient " << c.transient);
        EXPECT_NEAR(WaveformTimeBase::stepMs(record), c.stepMs, 1e-12);
        EXPECT_EQ(WaveformTimeBase::sampleAt(record, 100.0), c.sampleAt100ms);
        const QVector<float> axis = WaveformTimeBase::axis(record, 8192);
        EXPECT_FLOAT_EQ(axis.at(1), c.secondValue);
        for (int i = 0; i < axis.size(); ++i) {
            ASSERT_EQ(WaveformTimeBase::sampleAt(record, axis.at(i)), i) << "at " << axis.at(i);
        }
    }
    const WaveformRecord none;
    EXPECT_EQ(WaveformTimeBase::stepMs(none), 0.0);
    EXPECT_EQ(WaveformTimeBase::sampleAt(none, 10.0), 0);
    EXPECT_EQ(WaveformTimeBase::sampleAt(recordOf(cases[0]), -3.0), 0);
    EXPECT_EQ(WaveformTimeBase::sampleAt(recordOf(cases[0]), std::nan("")), 0);
}
