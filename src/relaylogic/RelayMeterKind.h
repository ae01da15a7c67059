// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// Which meters have a relay logic tree, and in which form: device types 0 and 3 keep eight
/// logic inputs, the newer types 4 and 5 forty-four (the inputs past the gates' eight reach the
/// relay through a second set path).
class RelayMeterKind
{
public:
    static bool accepted(int deviceTypeId);
    static bool newerForm(int deviceTypeId);
    /// Logic inputs a relay setting of that kind names (8 or 44).
    static int inputCount(int deviceTypeId);
    /// Why a meter of another type has no tree, as the user reads it.
    static QString refusal(int deviceTypeId);
};

} // namespace lorvane
