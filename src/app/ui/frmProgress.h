// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace lorvane {

/// The progress window of a waveform conversion: a bar, a label, a list of time-stamped
/// messages and a cancel button. One window serves the whole run; it stays hidden until an
/// operation shows it.
class frmProgress : public QDialog
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
    bool Cancelled() const { return m_cancelled; }
    void setProgressMax(int maximum);
    void setProgress(int value);

    /// The message lines in order.
    QStringList messages() const;
    QPushButton* cancelButton() const { return m_cancel; }

private:
    void cancelClicked();
    void appendLine(const QString& text);

    bool m_cancelled = false;
    QElapsedTimer m_clock;
    QLabel* m_label = nullptr;
    QProgressBar* m_bar = nullptr;
    QListWidget* m_list = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace lorvane
