// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/JobRunner.h"
#include "waveform/WaveGraphSession.h"

#include <QWidget>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace lorvane {

class WorkGuard;
class frmProgress;

/// The reading of a capture of the waveform window, off the window thread: the job opens its
/// own connection to the scratch file, its progress goes to the run's progress window (or to
/// this bar with its cancel, on the window's status line), and the capture read is taken into
/// the session on the window thread. A close of the window or the frame meanwhile cancels it.
class WaveCaptureJob : public QWidget
{
    Q_OBJECT

public:
    /// Reads for `session` from the scratch file `scratchPath` as long work of `work`.
    WaveCaptureJob(WaveGraphSession& session, QString scratchPath, WorkGuard& work, QLabel* status,
                   QWidget* parent = nullptr);

    /// The run's progress window (which must outlive this); null for the status line.
    void setProgressWindow(frmProgress* window) { m_window = window; }
    /// Reads as `read` asks and calls `shown` with the outcome of taking it in (nothing taken
    /// when cancelled or failed). False, with nothing started, while other work runs.
    bool start(const WaveGraphSession::CaptureRead& read,
               std::function<void(const WaveGraphSession::Outcome&)> shown);
    bool running() const { return m_runner.running(); }
    /// Asks the read to stop (the cancel of the bar).
    void cancel() { m_runner.cancel(); }
    /// A line of progress of the read, or of the window's setting up after it.
    void status(const QString& text);

private:
    void fraction(double share);

    WaveGraphSession& m_session;
    QString m_scratchPath;
    WorkGuard& m_work;
    QLabel* m_status;
    QProgressBar* m_bar = nullptr;
    QPushButton* m_cancel = nullptr;
    frmProgress* m_window = nullptr;
    JobRunner m_runner;
};

} // namespace lorvane
