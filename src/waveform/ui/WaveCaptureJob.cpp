// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveCaptureJob.h"

#include "app/ui/frmProgress.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace lorvane {

WaveCaptureJob::WaveCaptureJob(WaveGraphSession& session, QString scratchPath, WorkGuard& work,
                               QLabel* status, QWidget* parent)
    : QWidget(parent), m_session(session), m_scratchPath(std::move(scratchPath)), m_work(work),
      m_status(status), m_bar(new QProgressBar), m_cancel(new QPushButton)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_bar->setMaximumWidth(240);
    m_cancel->setText(userText("309001", "&Cancel"));
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    connect(m_cancel, &QPushButton::clicked, this, &WaveCaptureJob::cancel);
    connect(&m_runner, &JobRunner::statusChanged, this, &WaveCaptureJob::status);
    connect(&m_runner, &JobRunner::fractionChanged, this, &WaveCaptureJob::fraction);
    hide();
}

bool WaveCaptureJob::start(const WaveGraphSession::CaptureRead& read,
                           std::function<void(const WaveGraphSession::Outcome&)> shown)
{
    auto capture = std::make_shared<WaveformCapture>();
    const QString path = m_scratchPath;
    const bool started = m_runner.start(
        m_work,
        [read, capture, path](LoadProgress& progress) {
            // A connection of the job's own: the window thread's may not cross threads.
            SqliteDatabase scratch(path, SqliteDatabase::Mode::ReadOnly);
            *capture = read.run(scratch, &progress);
        },
        [this, read, capture, shown = std::move(shown)](const QString& failure) {
            WaveGraphSession::Outcome outcome{false, failure, true};
            if (m_runner.cancelled())
                outcome = {false, {}, false};
            else if (failure.isEmpty())
                outcome = m_session.take(read, std::move(*capture));
            // The window sets up its graphs with the progress still shown.
            shown(outcome);
            m_status->clear();
            hide();
            if (m_window) {
                m_window->hide();
                disconnect(m_window->cancelButton(), nullptr, this, nullptr);
            }
        });
    if (!started)
        return false;
    const QString title = userText("505013", "Opening the waveform capture");
    if (m_window) {
        m_window->Start(title);
        m_window->setFraction(std::nullopt);
        connect(m_window->cancelButton(), &QPushButton::clicked, this, &WaveCaptureJob::cancel,
                Qt::UniqueConnection);
        m_window->show();
    } else {
        m_status->setText(title);
        m_bar->setRange(0, 0);
        show();
    }
    return true;
}

void WaveCaptureJob::status(const QString& text)
{
    if (m_window)
        m_window->AddMessage(text);
    else
        m_status->setText(text);
}

void WaveCaptureJob::fraction(double share)
{
    if (m_window)
        m_window->setFraction(share < 0 ? std::nullopt : std::optional<double>(share));
    else if (share < 0)
        m_bar->setRange(0, 0);
    else {
        m_bar->setRange(0, 1000);
        m_bar->setValue(int(share * 1000));
    }
}

} // namespace lorvane
