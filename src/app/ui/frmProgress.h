// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LoadProgress.h"

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace lorvane {

/// The progress window of a waveform conversion: a bar, a label, a list of time-stamped
/// messages and a cancel button. One window serves the whole run; it stays hidden until an
/// operation shows it. It is a watcher of the progress contract: a step's text becomes a
/// message line, its share moves the bar, and its cancel is the button's.
class frmProgress : public QDialog, public LoadProgress
{
    Q_OBJECT

public:
    explicit frmProgress(QWidget* parent = nullptr);

    /// Empties the list, restarts the clock, adds "Beginning of the conversion" and shows
    /// `title` above the bar.
    void Start(const QString& title);
    /// Appends `text` behind the time since `Start`; nothing once the user cancelled.
    void AddMessage(const QString& text);
    /// The user pressed cancel.
    bool Cancelled() const { return cancelPending(); }
    /// A step's text: a message line, as AddMessage.
    void status(const QString& text) override { AddMessage(text); }
    void setProgressMax(int maximum);
    void setProgress(int value);

    /// The message lines in order.
    QStringList messages() const;
    QPushButton* cancelButton() const { return m_cancel; }

protected:
    /// A known share moves the bar; an unknown one makes it a busy bar.
    void showFraction(std::optional<double> fraction) override;
    /// Serves the window's events so that a click on cancel gets through.
    void serve() override;

private:
    void cancelClicked();
    void appendLine(const QString& text);

    QElapsedTimer m_clock;
    QLabel* m_label = nullptr;
    QProgressBar* m_bar = nullptr;
    QListWidget* m_list = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace lorvane
