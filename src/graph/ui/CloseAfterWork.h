// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace lorvane {

class WorkGuard;

/// The close of a graph window while long work runs: the work is asked to stop and the window
/// closes once it has ended, as the frame does with its own close.
class CloseAfterWork
{
public:
    /// While `work` runs: asks it to stop, has `window` (with its frame, when it sits in an
    /// area of child windows) closed once it has ended, and returns true: the close at hand is
    /// to be ignored. False, with nothing done, when no work runs.
    static bool defer(WorkGuard& work, QWidget* window);
};

} // namespace lorvane
