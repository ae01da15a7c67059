// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace lorvane {

/// What the upgrade of one meter file did.
struct UpgradeResult
{
    double from = 0;        ///< version before the ladder
    double to = 0;          ///< version after it
    QStringList steps;      ///< names of the steps that ran, in order ("UpdateDB2V7_6" ...)
    bool cancelled = false; ///< a step was cancelled; the file stays at `to`
};

} // namespace lorvane
