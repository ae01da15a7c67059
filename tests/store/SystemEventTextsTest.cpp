// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SystemEventTexts.h"

#include "support/ScopedStringCatalog.h"

#include <gtest/gtest.h>

using namespace lorvane;
using List = SystemEventTexts::List;

TEST(SystemEventTexts, EnglishListsInTheirOrder)
{
    const SystemEventTexts texts;
    const int sizes[SystemEventTexts::listCount] = {13, 4,  4,  7, 2, 7, 2, 4, 8,
                                                    3,  22, 32, 6, 8, 3, 8, 2, 2};
    for (int i = 0; i < SystemEventTexts::listCount; ++i)
        EXPECT_EQ(texts.list(static_cast<List>(i)).size(), sizes[i]) << "list " << i;

    EXPECT_EQ(texts.entry(List::EventClasses, 0), "Power");
    EXPECT_EQ(texts.entry(List::EventClasses, 12), "Security");
    EXPECT_EQ(texts.entry(List::TimeChanges, 3), " Time was Repaired to ");
    EXPECT_EQ(texts.entry(List::LogNames, 21), "Transient Log");
    EXPECT_EQ(texts.entry(List::ResetEvents, 19), "Test Mode");
    EXPECT_EQ(texts.entry(List::ResetEvents, 31), "Preset EN50160 Data");
    EXPECT_EQ(texts.entry(List::Ports, 5), "from DNP Port:");
    EXPECT_EQ(texts.entry(List::RelayStates, 2), "Locked,");
    EXPECT_EQ(texts.entry(List::Ports, 6), "");
    EXPECT_EQ(texts.entry(List::Ports, -1), "");
    EXPECT_EQ(texts.portTypeHeading(), "Port Type");
    EXPECT_EQ(texts.undefinedRelayState(), "Undefined");

    EXPECT_EQ(
        texts.list(List::LogicOperators),
        QStringList({"AND", "OR", "XOR", "Hysteresis", "NAND", "NOR", "NXOR", "NHysteresis"}));
    EXPECT_EQ(texts.logicOperator(8), "");
    EXPECT_EQ(texts.enableState(0), "Enabled");
    EXPECT_EQ(texts.enableState(1), "Disabled");
    EXPECT_EQ(texts.polarity(0), "Negative (-)");
    EXPECT_EQ(texts.polarity(1), "Positive (+)");
    EXPECT_EQ(texts.polarity(2), "");
}

TEST(SystemEventTexts, FillTranslatesEveryEntryAtOnce)
{
    const SystemEventTexts english;
    SystemEventTexts texts;
    {
        test::ScopedStringCatalog german(
            std::make_unique<StringCatalog>(test::ScopedStringCatalog::germanDatabase()));
        ASSERT_FALSE(stringCatalog().inactive());
        // Made while German is installed but not filled: still English.
        EXPECT_EQ(SystemEventTexts().entry(List::EventClasses, 0), "Power");
        texts.fill();
    }
    // Technical names that read the same in German.
    const QStringList unchanged{"RS-232/485", "Modem"};
    for (int i = 0; i < SystemEventTexts::listCount; ++i) {
        const QStringList& before = english.list(static_cast<List>(i));
        const QStringList& after = texts.list(static_cast<List>(i));
        ASSERT_EQ(after.size(), before.size()) << "list " << i;
        for (int j = 0; j < before.size(); ++j) {
            if (unchanged.contains(before.at(j)))
                EXPECT_EQ(after.at(j), before.at(j));
            else
                EXPECT_NE(after.at(j), before.at(j)) << before.at(j).toStdString();
        }
    }
    EXPECT_EQ(texts.entry(List::EventClasses, 0), "Versorgung");
    EXPECT_EQ(texts.entry(List::TimeChanges, 3), " Zeit wurde korrigiert auf ");
    EXPECT_EQ(texts.list(List::LogicOperators),
              QStringList(
                  {"UND", "ODER", "XODER", "Hysterese", "NUND", "NODER", "NXODER", "NHysterese"}));
    EXPECT_EQ(texts.enableState(1), "Deaktiviert");
    EXPECT_EQ(texts.polarity(1), "Positiv (+)");
    EXPECT_EQ(texts.portTypeHeading(), "Anschlusstyp");
    EXPECT_EQ(texts.undefinedRelayState(), "Undefiniert");

    // The language is taken at the fill: the catalogue going back to English changes nothing
    // until the next fill.
    EXPECT_EQ(texts.entry(List::EventClasses, 0), "Versorgung");
    texts.fill();
    EXPECT_EQ(texts.entry(List::EventClasses, 0), "Power");
    EXPECT_EQ(texts.list(List::LogicOperators).at(2), "XOR");
}
