// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "UpgradeStep.h"

#include <QList>

namespace lorvane {

/// The fixed, one-way ladder of schema upgrade steps from 7.5 to 8.6: V7.6, V7.7, V7.9
/// (there is no step to 7.8), V8.0 ... V8.6.
class UpgradeLadder
{
public:
    /// Every step in ladder order.
    static const QList<UpgradeStep>& steps();
    /// The steps a file of `version` runs, in order: from the one whose source it is up to
    /// V8.6. None for any version that is not a step's source (7.55, 7.8, 8.6 and above,
    /// anything below 7.5).
    static QList<UpgradeStep> stepsFrom(double version);
    /// The versions the ladder recognises as sources, 7.5 to 8.5 without 7.55 and 7.8.
    static bool isSource(double version);
};

} // namespace lorvane
