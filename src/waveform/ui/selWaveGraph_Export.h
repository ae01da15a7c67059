// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QListWidget;

namespace lorvane {

/// Chooses one graph of the waveform window to export.
class selWaveGraph_Export : public QDialog
{
    Q_OBJECT

public:
    /// `graphs` are the names of the graphs shown, in list order.
    explicit selWaveGraph_Export(const QStringList& graphs, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    /// Row chosen, -1 for none.
    int chosen() const;

signals:
    void helpRequested(const QString& topic);

private:
    QListWidget* m_list;
};

} // namespace lorvane
