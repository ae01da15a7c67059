// SPDX-License-Identifier: GPL-3.0-or-later
// The composition list: its limit, its messages, and the texts of its rows.
#include "waveform/WaveCompositionList.h"

#include <gtest/gtest.h>

using namespace lorvane;

namespace {

WaveCompositionItem item(int channel)
{
    WaveCompositionItem i;
    i.input = 1;
    i.groupIndex = 17;
    i.itemIndex = channel;
    i.dateTime = QDateTime(QDate(2024, 3, 4), QTime(10, 15, 59));
    i.ms = 1234.5;
    i.device = QStringLiteral("Feeder 15");
    i.item = QStringLiteral("Van");
    i.durationMs = 66.67;
    return i;
}

} // namespace

TEST(WaveCompositionList, AtMostSixAndTheThreeMessages)
{
    WaveCompositionList list;
    EXPECT_EQ(list.graphMessage(), QStringLiteral("Nothing to graph."));
    EXPECT_EQ(list.add(nullptr, false, -1, -1), QStringLiteral("Please select an item."));
    EXPECT_TRUE(list.items().isEmpty());
    for (int c = 0; c < 6; ++c) {
        const WaveCompositionItem i = item(c);
        EXPECT_TRUE(list.add(&i, c % 2 == 1, 2.5, 10.0).isEmpty());
    }
    const WaveCompositionItem seventh = item(6);
    EXPECT_EQ(
        list.add(&seventh, false, -1, -1),
        QStringLiteral("There are no available channels left for graph. Max channels are 6."));
    ASSERT_EQ(list.items().size(), 6);
    EXPECT_EQ(list.items().last().itemIndex, 5);
    EXPECT_TRUE(list.graphMessage().isEmpty());
    EXPECT_FALSE(list.remove(6));
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(list.items().first().itemIndex, 1);
}

TEST(WaveCompositionList, SectionAndCompleteTexts)
{
    WaveCompositionList list;
    const WaveCompositionItem i = item(0);
    list.add(&i, true, 2.5, 10.0);
    list.add(&i, false, 2.5, 10.0);
    list.add(&i, true, -1, 10.0);
    const QList<WaveCompositionItem>& items = list.items();
    EXPECT_EQ(WaveCompositionList::description(items[0]),
              QStringLiteral("From 2.50 ms to 10.00 ms, duration = 7.50 ms."));
    EXPECT_EQ(WaveCompositionList::cells(items[0]).at(6), QStringLiteral("Section"));
    EXPECT_EQ(WaveCompositionList::cells(items[0]).at(7), QStringLiteral("7.50"));
    EXPECT_EQ(WaveCompositionList::description(items[1]),
              QStringLiteral("2024-03-04 10:15:59, Van"));
    EXPECT_EQ(WaveCompositionList::cells(items[1]).at(6), QStringLiteral("Complete"));
    EXPECT_EQ(items[1].start, -1);
    // No stretch chosen: the section keeps its start at -1.
    EXPECT_EQ(items[2].start, -1);
    EXPECT_EQ(WaveCompositionList::columnTitles().size(), 8);

    // 1234.5 ms past the second moves the clock on one second.
    EXPECT_EQ(WaveCompositionList::legend(i), QStringLiteral("10:16:00.2345 Van"));
    // Fault 8: the step was rounded to 0.033 before it multiplied, stretching the axis of a
    // 512-sample capture by 1.4 % (135.14 ms in place of 133.30 at its last sample).
    EXPECT_FLOAT_EQ(WaveCompositionList::timeAxis(60, 512, 4096).last(), 133.301F);
    EXPECT_FLOAT_EQ(WaveCompositionList::timeAxis(60, 1024, 4096).last(), 66.65F);
    EXPECT_FLOAT_EQ(WaveCompositionList::timeAxis(50, 16, 2).last(), 1.25F);
    EXPECT_EQ(WaveCompositionList::timeAxis(60, 0, 3), QVector<float>(3, 0.0F));
}
