// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/GraphSelection.h"

#include <functional>

class QWidget;

namespace lorvane {

/// How each graph window is made from a selection, by log kind: the hook through which a
/// graph window makes itself known without the log grid or the main window naming it. A maker
/// returns the window, or nullptr when it refused to open (it has shown why).
class GraphWindows
{
public:
    using Maker = std::function<QWidget*(const GraphSelection& selection, QWidget* parent)>;

    /// Registers the maker of `logKind`, replacing an earlier one. False (and nothing
    /// registered) for a kind that GraphRegistry does not list or an empty maker.
    static bool add(int logKind, Maker maker);
    /// Whether a window can be made for `logKind`.
    static bool has(int logKind);
    /// The maker registered for `logKind`, empty when none is: a window that shares a kind
    /// with another (trend and power graphs of the snapshot grid) offers both through it.
    static Maker maker(int logKind);
    /// The window of the selection's kind, or nullptr when none is registered or it refused.
    static QWidget* open(const GraphSelection& selection, QWidget* parent);
    /// Drops the maker of `logKind` (a window module that unloads, a test).
    static void remove(int logKind);
};

} // namespace lorvane
