// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/WaveDisplaySettings.h"

#include <QDialog>
#include <array>

class QCheckBox;
class QComboBox;
class QPushButton;
class QTableWidget;

namespace lorvane {

/// "Waveform Display Settings": how the waveform window draws its channels. &OK writes every
/// key of the settings file's section; &Cancel leaves the file alone.
class WaveGraphSetup : public QDialog
{
    Q_OBJECT

public:
    WaveGraphSetup(const QString& settingsFile, QWidget* parent = nullptr);

    /// The values as the dialog shows them now.
    WaveDisplaySettings settings() const;
    /// &OK: writes the file and closes; a file that cannot be written is reported and the
    /// dialog stays open.
    void accept() override;

    QTableWidget* general() const { return m_general; }
    QTableWidget* subsets() const { return m_subsets; }
    /// The drop-down list of general row `row`, or nullptr for a colour row.
    QComboBox* choice(int row) const;

signals:
    void helpRequested(const QString& topic);

private:
    void pickColor(QPushButton* button);

    QString m_settingsFile;
    WaveDisplaySettings m_loaded;
    QTableWidget* m_general;
    QTableWidget* m_subsets;
};

} // namespace lorvane
