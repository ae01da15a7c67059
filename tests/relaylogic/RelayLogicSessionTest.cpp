// SPDX-License-Identifier: GPL-3.0-or-later
// The relay logic window's session on a simulated recorder: the trees of its relays as the
// relay grid hands them over, and the steps through the grid's rows to either end.
#include "relaylogic/RelayLogicSession.h"

#include "RelaySimMeter.h"
#include "relaylogic/RelayLogicGrid.h"
#include "relaylogic/RelayLogicTexts.h"

#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;
using Kind = RelayLogicNode::Kind;

TEST(RelayLogicSession, TreesOfTheSimulatedRelays)
{
    RelaySimMeter sim;
    RelayLogicSession session(sim.scratch->database(), sim.view.numbers, sim.relays().rowKeys);

    // The hysteresis relay through its gates: every gate, both set paths, both delays.
    session.open(sim.row(QStringLiteral("Feeder Lockout"), QStringLiteral("09:30")));
    ASSERT_TRUE(session.tree());
    const RelayLogicTree& gated = *session.tree();
    for (int g = 1; g <= 7; ++g)
        EXPECT_GE(gated.find(Kind::Gate, g), 0) << g;
    const int s2 = gated.find(Kind::SetPath, 2);
    ASSERT_GE(s2, 0);
    EXPECT_EQ(gated.nodes.at(s2).state, RelayNodeState::Inactive);
    EXPECT_EQ(gated.nodes.at(gated.find(Kind::SetPath, 1)).state,
              gated.nodes.at(gated.find(Kind::Gate, 7)).state);
    EXPECT_EQ(RelayLogicTexts::gateType(gated.nodes.at(gated.find(Kind::Gate, 6)).gate),
              QStringLiteral("NHysteresis"));
    const GridTable grid = RelayLogicGrid::table(gated);
    EXPECT_EQ(grid.rows.size(), 12); // inputs 1 to 8, 43, 44 and the two delays
    EXPECT_EQ(grid.rows.at(10).at(1), QStringLiteral("Set Delay=3.0 Sec."));
    EXPECT_EQ(grid.rows.at(11).at(1), QStringLiteral("ReSet Delay=10.0 Sec."));

    // The remote trip through input 43 leaves the relay open and locked.
    session.open(sim.row(QStringLiteral("Feeder Lockout"), QStringLiteral("21:15")));
    const RelayLogicTree& remote = *session.tree();
    EXPECT_EQ(remote.nodes.at(remote.find(Kind::Input, 43)).state, RelayNodeState::Active);
    EXPECT_EQ(remote.nodes.at(remote.find(Kind::Input, 44)).state, RelayNodeState::Inactive);
    EXPECT_EQ(remote.nodes.at(remote.find(Kind::SetPath, 2)).state, RelayNodeState::Active);
    EXPECT_EQ(RelayLogicTexts::finalState(remote), QStringLiteral("Opened and Locked"));

    // The AND of a limit and an input: one gate, both inputs and the gate set.
    const int shed = sim.row(QStringLiteral("Load Shed"), QString());
    ASSERT_GE(shed, 0);
    session.open(shed);
    const RelayLogicTree& andTree = *session.tree();
    EXPECT_EQ(andTree.find(Kind::Gate, 2), -1);
    const RelayLogicNode& gate = andTree.nodes.at(andTree.find(Kind::Gate, 1));
    EXPECT_EQ(RelayLogicTexts::gateType(gate.gate), QStringLiteral("AND"));
    EXPECT_EQ(gate.state, RelayNodeState::Active);
    EXPECT_EQ(RelayLogicTexts::finalState(andTree), QStringLiteral("NO"));
}

TEST(RelayLogicSession, StepsStopAtTheFirstAndLastRecord)
{
    RelaySimMeter sim;
    RelayLogicSession session(sim.scratch->database(), sim.view.numbers, sim.relays().rowKeys);
    ASSERT_GT(session.count(), 2);
    EXPECT_EQ(session.printRefusal(), QStringLiteral("Invalid device type, cannot print."));
    session.open(0);
    const qint64 first = session.tree()->gIndex;
    EXPECT_EQ(session.step(-1), QStringLiteral("This is the first record"));
    EXPECT_EQ(session.position(), 0);
    EXPECT_EQ(session.tree()->gIndex, first);
    EXPECT_EQ(session.step(1), QString());
    EXPECT_EQ(session.position(), 1);
    EXPECT_NE(session.tree()->gIndex, first);
    session.open(session.count() - 1);
    EXPECT_EQ(session.step(1), QStringLiteral("This is the last record"));
    EXPECT_EQ(session.position(), session.count() - 1);
    EXPECT_EQ(session.printRefusal(), QString());
}
