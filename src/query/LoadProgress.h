// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// What a long load tells its watcher, and how it learns that the user cancelled. The wait
/// window implements it; the command line and the tests pass their own.
class LoadProgress
{
public:
    virtual ~LoadProgress() = default;
    /// A line of progress text ("Searching data for device ...").
    virtual void status(const QString& text) = 0;
    /// Asked at each day, hour or block step; true ends the load with what was read so far.
    virtual bool cancelRequested() = 0;
};

/// Progress that goes nowhere and is never cancelled.
class SilentProgress : public LoadProgress
{
public:
    void status(const QString&) override {}
    bool cancelRequested() override { return false; }
};

} // namespace lorvane
