// SPDX-License-Identifier: GPL-3.0-or-later
// The relay logic tree from a setting row and a record row: the input bit table, the gate
// bytes, the meter kinds, the missing rows, the delays and the relay's end, and a layout
// without crossing edges for every choice of named inputs.
#include "relaylogic/RelayLogicBuilder.h"

#include "platform/Fault.h"
#include "relaylogic/RelayInputBits.h"
#include "relaylogic/RelayLogicGrid.h"
#include "relaylogic/RelayLogicTexts.h"

#include <gtest/gtest.h>

using namespace lorvane;
using Kind = RelayLogicNode::Kind;

namespace {

QVariantMap setting(const QList<int>& named, const QList<int>& combs = {})
{
    QVariantMap row{{QStringLiteral("RelayLabel"), QStringLiteral("Trip")},
                    {QStringLiteral("SetDelay"), 2},
                    {QStringLiteral("ResetDelay"), 0},
                    {QStringLiteral("Hysteresis"), 5},
                    {QStringLiteral("LogicControl"), 1}};
    for (int n : named)
        row.insert(QStringLiteral("LogicStr%1").arg(n), QStringLiteral("In %1").arg(n));
    for (int g = 0; g < combs.size(); ++g)
        row.insert(QStringLiteral("LogicComb%1").arg(g + 1), combs.at(g));
    return row;
}

QVariantMap record(const QVariant& status = 0, const QVariant& statusB = 0,
                   const QVariant& gates = 0, int endCondition = 1)
{
    return {{QStringLiteral("GIndex"), 17},
            {QStringLiteral("DT1"), QStringLiteral("2024-03-04 09:30:00")},
            {QStringLiteral("ms1"), 500},
            {QStringLiteral("DT3"), QStringLiteral("2024-03-04 09:30:03")},
            {QStringLiteral("ms3"), 750},
            {QStringLiteral("InputStatus"), status},
            {QStringLiteral("InputStatusB"), statusB},
            {QStringLiteral("GateStatus"), gates},
            {QStringLiteral("Condition0"), 0},
            {QStringLiteral("Condition3"), endCondition}};
}

RelayNodeState inputState(const RelayLogicTree& tree, int n)
{
    return tree.nodes.at(tree.find(Kind::Input, n)).state;
}

} // namespace

TEST(RelayLogicTree, InputBitTable)
{
    // Inputs 43 and 44 share the first word with 1 to 21, in bits 21 and 22.
    struct Case
    {
        int input;
        RelayInputBits::Word word;
        int bit;
    } const cases[] = {
        {1, RelayInputBits::Word::InputStatus, 0},   {21, RelayInputBits::Word::InputStatus, 20},
        {22, RelayInputBits::Word::InputStatusB, 0}, {42, RelayInputBits::Word::InputStatusB, 20},
        {43, RelayInputBits::Word::InputStatus, 21}, {44, RelayInputBits::Word::InputStatus, 22},
    };
    const QList<int> all{1, 2, 20, 21, 22, 23, 41, 42, 43, 44};
    for (const Case& c : cases) {
        const qint64 mask = qint64(1) << c.bit;
        const bool first = c.word == RelayInputBits::Word::InputStatus;
        const RelayLogicTree tree =
            RelayLogicBuilder::build(4, setting(all), record(first ? mask : 0, first ? 0 : mask));
        for (int n : all)
            EXPECT_EQ(inputState(tree, n),
                      n == c.input ? RelayNodeState::Active : RelayNodeState::Inactive)
                << "bit " << c.bit << " input " << n;
    }
    // A record without the second word: its inputs are unknown, 43 and 44 still read.
    const RelayLogicTree partial =
        RelayLogicBuilder::build(4, setting(all), record(qint64(1) << 22, QVariant()));
    EXPECT_EQ(inputState(partial, 44), RelayNodeState::Active);
    EXPECT_EQ(inputState(partial, 42), RelayNodeState::Unknown);
    const GridTable grid = RelayLogicGrid::table(partial);
    const QStringList line42 = grid.rows.at(all.indexOf(42));
    EXPECT_EQ(line42.first(), QStringLiteral("42"));
    EXPECT_EQ(line42.at(1), QStringLiteral("In 42 (input status unavailable)"));
    EXPECT_EQ(line42.last(), QStringLiteral("N/A"));
}

TEST(RelayLogicTree, GateTypesAndInversions)
{
    struct Case
    {
        int comb;
        const char* type;
        bool first;
        bool second;
    } const cases[] = {
        {0, "AND", false, false},
        {1, "AND", true, false},
        {4, "OR", false, false},
        {6, "OR", false, true},
        {8, "XOR", false, false},
        {11, "XOR", true, true},
        {12, "Hysteresis", false, false},
        {13, "Hysteresis", true, false},
        {16, "NAND", false, false},
        {18, "NAND", false, true},
        {20, "NOR", false, false},
        {21, "NOR", true, false},
        {24, "NXOR", false, false},
        {27, "NXOR", true, true},
        {28, "NHysteresis", false, false},
        {30, "NHysteresis", false, true},
        {32 + 12, "Hysteresis", false, false}, // bits above 4 carry nothing
    };
    for (const Case& c : cases) {
        const RelayLogicTree tree =
            RelayLogicBuilder::build(0, setting({1, 2}, {c.comb}), record());
        const RelayLogicNode& gate = tree.nodes.at(tree.find(Kind::Gate, 1));
        EXPECT_EQ(RelayLogicTexts::gateType(gate.gate), QString::fromLatin1(c.type)) << c.comb;
        EXPECT_EQ(gate.gate.firstInverted, c.first) << c.comb;
        EXPECT_EQ(gate.gate.secondInverted, c.second) << c.comb;
        EXPECT_EQ(RelayLogicGrid::table(tree).rows.first().at(3), QString::fromLatin1(c.type));
    }
}

TEST(RelayLogicTree, MeterKindsAndMissingRows)
{
    struct Case
    {
        int deviceType;
        const char* refusal; ///< nullptr: accepted
        const char* title;
        bool input43;
    } const cases[] = {
        {0, nullptr, "Talmo Relay Logic Tree", false},
        {2, "Invalid device type #2, it is not a Halyx 12 Series or Unit 10 Talmo+.", "", false},
        {3, nullptr, "Talmo Relay Logic Tree", false},
        {4, nullptr, "Zelmo Logic Relay Control", true},
        {5, nullptr, "Zelmo Logic Relay Control", true},
        {6, "Invalid device type #6, it is not a Halyx 12 Series or Unit 10 Talmo+.", "", false},
    };
    for (const Case& c : cases) {
        try {
            const RelayLogicTree tree =
                RelayLogicBuilder::build(c.deviceType, setting({1, 2, 43}), record());
            EXPECT_EQ(c.refusal, nullptr) << c.deviceType;
            EXPECT_EQ(RelayLogicTexts::title(c.deviceType), QString::fromLatin1(c.title));
            EXPECT_EQ(tree.find(Kind::Input, 43) >= 0, c.input43) << c.deviceType;
            EXPECT_EQ(tree.find(Kind::SetPath, 2) >= 0, c.input43) << c.deviceType;
        } catch (const Fault& fault) {
            ASSERT_NE(c.refusal, nullptr) << c.deviceType;
            EXPECT_EQ(fault.message(), QString::fromLatin1(c.refusal));
        }
    }
    for (const auto& [set, rec] :
         {std::pair{QVariantMap{}, record()}, std::pair{setting({1}), QVariantMap{}}}) {
        try {
            RelayLogicBuilder::build(0, set, rec);
            ADD_FAILURE() << "a missing row built a tree";
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.message(), QStringLiteral("Cannot find relay setup information."));
        }
    }
}

TEST(RelayLogicTree, GateStatesDelaysAndTheRelaysEnd)
{
    // Eight inputs fill A to D, E and F and G over them; gate C's byte (2) is set.
    const RelayLogicTree tree = RelayLogicBuilder::build(
        0, setting({1, 2, 3, 4, 5, 6, 7, 8}), record(0, 0, qint64(1) << 16 | qint64(1) << 48, 2));
    for (int g = 1; g <= 7; ++g)
        EXPECT_EQ(tree.nodes.at(tree.find(Kind::Gate, g)).state,
                  g == 3 || g == 7 ? RelayNodeState::Active : RelayNodeState::Inactive)
            << g;
    EXPECT_EQ(tree.nodes.at(tree.find(Kind::SetPath, 1)).state, RelayNodeState::Active);
    EXPECT_EQ(RelayLogicTexts::finalState(tree), QStringLiteral("Opened and Locked"));
    EXPECT_EQ(RelayLogicTexts::startHeading(tree).left(33),
              QStringLiteral("Limit Status at Trigger (Start): "));
    const GridTable grid = RelayLogicGrid::table(tree);
    EXPECT_EQ(grid.columns, (QStringList{"Index", "Name", "Hysteresis", "Logic Type",
                                         "Logic Control", "Status"}));
    EXPECT_EQ(grid.rows.at(8).at(1), QStringLiteral("Set Delay=2.0 Sec."));
    EXPECT_EQ(grid.rows.at(9).at(1), QStringLiteral("ReSet Delay=0.0 Sec."));
    EXPECT_EQ(grid.rows.at(0).at(2), QStringLiteral("5"));

    // No gate block: the gates are unknown ("?"); the relay's end "NO" is not locked.
    const RelayLogicTree unknown =
        RelayLogicBuilder::build(0, setting({1, 2}), record(0, 0, QVariant(), 1));
    EXPECT_EQ(RelayLogicTexts::stateMark(unknown.nodes.at(unknown.find(Kind::Gate, 1)).state),
              QStringLiteral("?"));
    EXPECT_EQ(RelayLogicTexts::finalState(unknown), QStringLiteral("NO"));
    // A gate with one named input is left out: the input feeds the set path.
    const RelayLogicTree single = RelayLogicBuilder::build(0, setting({3}), record());
    EXPECT_EQ(single.find(Kind::Gate, 2), -1);
    EXPECT_EQ(single.edges.first().from, single.find(Kind::Input, 3));
    EXPECT_EQ(single.edges.first().to, single.find(Kind::SetPath, 1));
}

namespace {

double cross(double ax, double ay, double bx, double by, double cx, double cy)
{
    return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
}

/// Whether the open segments p1-p2 and q1-q2 cross (sharing an end is no crossing).
bool crosses(const RelayLogicNode& p1, const RelayLogicNode& p2, const RelayLogicNode& q1,
             const RelayLogicNode& q2)
{
    const double d1 = cross(q1.column, q1.row, q2.column, q2.row, p1.column, p1.row);
    const double d2 = cross(q1.column, q1.row, q2.column, q2.row, p2.column, p2.row);
    const double d3 = cross(p1.column, p1.row, p2.column, p2.row, q1.column, q1.row);
    const double d4 = cross(p1.column, p1.row, p2.column, p2.row, q2.column, q2.row);
    return d1 * d2 < -1e-9 && d3 * d4 < -1e-9;
}

} // namespace

TEST(RelayLogicTree, NoEdgesCrossAndNoNodesMeetForAnyNamedInputs)
{
    for (int mask = 0; mask < 256; ++mask) {
        for (const QList<int>& beyond : {QList<int>{}, QList<int>{9, 43, 44}}) {
            QList<int> named = beyond;
            for (int n = 1; n <= 8; ++n)
                if (mask & (1 << (n - 1)))
                    named << n;
            const RelayLogicTree tree = RelayLogicBuilder::build(5, setting(named), record());
            const auto& nodes = tree.nodes;
            for (const RelayLogicEdge& e : tree.edges) {
                ASSERT_LT(nodes.at(e.from).column, nodes.at(e.to).column) << mask;
                // A gate's first pin takes the upper signal, so the pins cross nothing.
                if (e.pin == 1) {
                    for (const RelayLogicEdge& f : tree.edges) {
                        if (f.to == e.to && f.pin == 0) {
                            EXPECT_LT(nodes.at(f.from).row, nodes.at(e.from).row) << mask;
                        }
                    }
                }
                for (const RelayLogicEdge& f : tree.edges)
                    EXPECT_FALSE(
                        crosses(nodes.at(e.from), nodes.at(e.to), nodes.at(f.from), nodes.at(f.to)))
                        << "mask " << mask;
                // An edge keeps half a row from every node of the columns it passes.
                for (const RelayLogicNode& n : nodes) {
                    const RelayLogicNode& a = nodes.at(e.from);
                    const RelayLogicNode& b = nodes.at(e.to);
                    if (n.column <= a.column || n.column >= b.column)
                        continue;
                    const double at =
                        a.row + (b.row - a.row) * (n.column - a.column) / (b.column - a.column);
                    EXPECT_GE(std::abs(at - n.row), 0.5) << "mask " << mask;
                }
            }
            for (int i = 0; i < nodes.size(); ++i) {
                for (int j = i + 1; j < nodes.size(); ++j) {
                    if (nodes.at(i).column == nodes.at(j).column) {
                        EXPECT_GE(std::abs(nodes.at(i).row - nodes.at(j).row), 0.5)
                            << "mask " << mask;
                    }
                }
            }
        }
    }
}
