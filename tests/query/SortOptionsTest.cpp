// SPDX-License-Identifier: GPL-3.0-or-later
#include "query/engine/SortOptions.h"

#include <gtest/gtest.h>

using namespace lorvane;

TEST(SortOptions, ItemListsAndOrderClauses)
{
    EXPECT_EQ(
        SortOptions::itemTexts(LogKind::Relays),
        (QStringList{"Date/Time", "Trigger to Command Duration", "Command to Acknowledge Duration",
                     "Module/Input Name", "Module/Input Index", "Start State", "End State"}));
    EXPECT_EQ(SortOptions::itemTexts(LogKind::Limits),
              (QStringList{"Date/Time", "Data Point", "Duration", "State", "Value"}));
    for (LogKind kind :
         {LogKind::Waveform, LogKind::PowerQuality, LogKind::Flicker, LogKind::SystemEvent})
        EXPECT_EQ(SortOptions::itemTexts(kind), QStringList{"Date/Time"});
    EXPECT_EQ(SortOptions::itemTexts(LogKind::Snapshots, {"[Dev1_Data7]"}),
              (QStringList{"Date/Time", "[Dev1_Data7]"}));
    EXPECT_EQ(SortOptions::itemIndex(LogKind::Inputs, "state"), 4);
    EXPECT_EQ(SortOptions::itemIndex(LogKind::Inputs, ""), 0);
    EXPECT_EQ(SortOptions::itemIndex(LogKind::Inputs, "Value"), -1);

    // A key sort keeps equal keys in time order; reversing reverses both.
    EXPECT_EQ(SortOptions::orderBy(LogKind::Limits, {4, false, 0}),
              "[LValue] ASC, [StartDate/Time] ASC, [Startms] ASC, rowid ASC");
    EXPECT_EQ(SortOptions::orderBy(LogKind::Limits, {4, true, 0}),
              "[LValue] DESC, [StartDate/Time] DESC, [Startms] DESC, rowid DESC");
    EXPECT_EQ(SortOptions::orderBy(LogKind::SystemEvent, {0, true, 0}),
              "[Date/Time] DESC, [ms] DESC, [Sequence] DESC, rowid DESC");
    // The meter order of inputs stays ascending whatever the direction; an unknown item falls
    // back to the time.
    EXPECT_EQ(SortOptions::orderBy(LogKind::Inputs, {99, true, 0}),
              "A.[DT1] DESC, A.[ms1] DESC, A.[DT2] DESC, A.[ms2] DESC, A.[DeviceIndex] ASC, "
              "A.rowid DESC");
    EXPECT_EQ(SortOptions::snapshotGroupings().size(), 26);
    EXPECT_EQ(SortOptions::directionNames(), (QStringList{"Ascending", "Descending"}));
}
