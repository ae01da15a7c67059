// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"

#include <QString>
#include <functional>

class QLabel;

namespace lorvane {

class WorkGuard;
class frmProgress;

/// The progress of the waveform window's long steps: in the run's progress window when there
/// is one, else on the window's status line. Each step serves the window's events; a cancel
/// of the progress window or of whoever waits for the work (the close of the frame) stops
/// the steps that can stop.
class WaveGraphProgress : public LoadProgress
{
public:
    explicit WaveGraphProgress(QLabel* status) : m_status(status) {}

    /// The run's progress window (which must outlive the window); null for the status line.
    void setWindow(frmProgress* window) { m_window = window; }
    /// Runs `steps` as long work of `work` with the progress shown under `title` (without
    /// `cancellable` the window offers no cancel). False, with nothing run, while other work
    /// runs; false too when the user or a waiter (the close of the frame) cancelled.
    bool run(WorkGuard& work, const QString& title, bool cancellable,
             const std::function<void()>& steps);
    /// A step's text, shown and then the window's events served.
    void status(const QString& text) override;

protected:
    void showFraction(std::optional<double> fraction) override;
    void serve() override;

private:
    void begin(const QString& title, bool cancellable);
    /// Ends the steps; true when the user or a waiter cancelled.
    bool end();

    QLabel* m_status;
    frmProgress* m_window = nullptr;
};

} // namespace lorvane
