// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;

namespace lorvane {

class frmProgress;

/// The progress of the waveform window's long steps: in the run's progress window when there
/// is one, else on the window's status line. Each step serves the window's events.
class WaveGraphProgress
{
public:
    explicit WaveGraphProgress(QLabel* status) : m_status(status) {}

    /// The run's progress window (which must outlive the window); null for the status line.
    void setWindow(frmProgress* window) { m_window = window; }
    /// Starts the steps of `title`; without `cancellable` the window offers no cancel.
    void begin(const QString& title, bool cancellable);
    void step(const QString& text);
    /// Ends the steps; true when the user cancelled.
    bool end();

private:
    QLabel* m_status;
    frmProgress* m_window = nullptr;
};

} // namespace lorvane
