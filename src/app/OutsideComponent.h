// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace lorvane {

/// What the outside report and conversion component says of itself: whether it is installed
/// and its version text.
struct OutsideComponentStatus
{
    bool installed = false;
    QString version;
};

/// Asks the outside component for its status; the export subsystem provides it. Without one
/// no component is installed.
using OutsideComponentProbe = std::function<OutsideComponentStatus()>;

} // namespace lorvane
