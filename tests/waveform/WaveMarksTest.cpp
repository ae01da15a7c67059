// SPDX-License-Identifier: GPL-3.0-or-later
// The two marks of the waveform window and the measured interval between them.
#include "waveform/WaveMarks.h"

#include <gtest/gtest.h>

using namespace lorvane;

TEST(WaveMarks, DurationAndArrowsFollowTheEarlierMark)
{
    WaveMarks marks;
    EXPECT_TRUE(marks.annotations().isEmpty());
    marks.set(1, 20.5);
    EXPECT_TRUE(marks.durationText().isEmpty());
    ASSERT_EQ(marks.annotations().size(), 1);
    EXPECT_EQ(marks.annotations().first(), (WaveMarks::Annotation{20.5, u'H', "Mark 1"}));

    // Mark 2 left of Mark 1: still a positive duration, the arrows exchange sides.
    marks.set(2, 8.16);
    EXPECT_EQ(marks.durationText(), QStringLiteral("Duration = 12.34ms"));
    const QList<WaveMarks::Annotation> a = marks.annotations();
    ASSERT_EQ(a.size(), 5);
    EXPECT_EQ(a[1], (WaveMarks::Annotation{8.16, u'H', "Mark 2"}));
    EXPECT_EQ(a[2], (WaveMarks::Annotation{8.16, u'l', " <<"}));
    EXPECT_EQ(a[3], (WaveMarks::Annotation{20.5, u'r', ">> "}));
    EXPECT_EQ(a[4].text, QStringLiteral("     Duration = 12.34ms"));
    EXPECT_DOUBLE_EQ(a[4].x, (8.16 + 20.5) / 2);

    marks.set(2, 30.0);
    EXPECT_EQ(marks.annotations()[2].x, 20.5);
    EXPECT_EQ(marks.durationText(), QStringLiteral("Duration = 9.50ms"));

    marks.set(3, 1.0);
    marks.clear();
    EXPECT_FALSE(marks.isSet(1));
    EXPECT_FALSE(marks.duration());
    EXPECT_TRUE(marks.annotations().isEmpty());
}

TEST(WaveMarks, DecodeSplitsThePlacementCode)
{
    EXPECT_EQ(WaveMarks::decode(1, QStringLiteral("|hTrigger")),
              (WaveMarks::Annotation{1, u'h', "Trigger"}));
    EXPECT_EQ(WaveMarks::decode(1, QStringLiteral("plain")),
              (WaveMarks::Annotation{1, {}, "plain"}));
    EXPECT_EQ(WaveMarks::decode(1, QStringLiteral("|")), (WaveMarks::Annotation{1, {}, "|"}));
}
