// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RelayGateByte.h"
#include "store/StampedTime.h"

#include <QList>
#include <QString>

namespace lorvane {

/// What a node of the tree stood at when the relay moved.
enum class RelayNodeState
{
    Unknown = -1, ///< the meter did not say ("?" in the picture, "N/A" in the grid)
    Inactive = 0,
    Active = 1,
};

/// One node of the relay logic tree, with its place in the layout: `column` counts from the
/// inputs (0) to the relay, `row` from the top in rows of one input each (a gate stands between
/// the rows of what feeds it, so it may be fractional).
struct RelayLogicNode
{
    enum class Kind
    {
        Input,   ///< logic input `number` (1 to 44), named by `LogicStr{number}`
        Gate,    ///< gate `number` 1 to 7 ("A" to "G"), from `LogicComb{number}`
        SetPath, ///< set path `number` 1 or 2 ("S1", "S2"): what sets the relay
        Delay,   ///< `number` 1 the set delay, 2 the reset delay, `seconds` long
        Relay,   ///< the relay itself, in its final state
    };
    Kind kind = Kind::Input;
    int number = 0;
    QString name;
    RelayNodeState state = RelayNodeState::Unknown;
    /// Inputs: false when the event row does not carry the status word of the input.
    bool statusAvailable = true;
    RelayGateByte gate;
    double seconds = 0.0;
    int column = 0;
    double row = 0.0;
};

/// A signal from node `from` into node `to` (indices into the node list); `pin` is 0 for the
/// first and 1 for the second input of a gate, -1 for a node without pins.
struct RelayLogicEdge
{
    int from = 0;
    int to = 0;
    int pin = -1;
};

/// A relay record explained: the relay's logic as it stood at the record's trigger, from the
/// limits and inputs through the gates and delays to the relay's final state, laid out once
/// so that the window, the printed page, the picture files and the command line show the same
/// tree. Built by RelayLogicBuilder, placed by RelayLogicLayout.
struct RelayLogicTree
{
    int deviceTypeId = 0;
    qint64 gIndex = 0;
    QString moduleName;
    QString relayName;
    /// Trigger (start of the tree) and acknowledge (its end) of the record.
    StampedTime start;
    StampedTime end;
    double durationMs = 0.0;
    qint64 hysteresis = 0;
    qint64 logicControl = 0;
    /// `Condition0` and `Condition3`: the relay states at the trigger and at the end.
    int startCondition = -1;
    int endCondition = -1;
    /// The relay stays open and locked (its end state is the locked one).
    bool openedAndLocked = false;

    QList<RelayLogicNode> nodes;
    QList<RelayLogicEdge> edges;
    /// Number of columns and of rows the layout uses.
    int columns = 0;
    double rows = 0.0;

    /// Index of the node of that kind and number, -1 when the tree has none.
    int find(RelayLogicNode::Kind kind, int number) const
    {
        for (int i = 0; i < nodes.size(); ++i)
            if (nodes.at(i).kind == kind && nodes.at(i).number == number)
                return i;
        return -1;
    }
};

} // namespace lorvane
