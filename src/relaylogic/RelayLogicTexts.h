// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"

#include <QString>

namespace lorvane {

/// The words of the relay logic tree, the same in the window, on the printed page, in the
/// picture files and on the command line.
class RelayLogicTexts
{
public:
    /// "Talmo Relay Logic Tree" for the older meters, "Zelmo Logic Relay Control" for the
    /// newer form.
    static QString title(int deviceTypeId);
    /// "A" to "G" for a gate, "S1"/"S2" for a set path, "Set Delay"/"Reset Delay", "Relay";
    /// an input's name (with "input status unavailable" when its word is missing).
    static QString label(const RelayLogicNode& node);
    /// A gate's type text ("AND" ... "NHysteresis").
    static QString gateType(const RelayGateByte& gate);
    /// The mark in the picture: "1", "0" or "?".
    static QString stateMark(RelayNodeState state);
    /// The grid's status: "1", "0" or "N/A".
    static QString status(RelayNodeState state);
    /// "Set Delay=2.0 Sec." and "ReSet Delay=5.0 Sec." (`number` 1 or 2).
    static QString delay(int number, double seconds);
    /// "Limit Status at Trigger (Start): " and the trigger time; "Control Path to Relay Trip
    /// (End): " and the end time.
    static QString startHeading(const RelayLogicTree& tree);
    static QString endHeading(const RelayLogicTree& tree);
    /// The relay's final state: "Opened and Locked" for a relay that stays open, else the
    /// state word of `Condition3` ("NC", "NO", "Undefined").
    static QString finalState(const RelayLogicTree& tree);
    /// "This is the first record" / "This is the last record".
    static QString firstRecord();
    static QString lastRecord();
    /// The refusals of Print.
    static QString cannotPrintKind();
    static QString cannotPrintGrid();
};

} // namespace lorvane
