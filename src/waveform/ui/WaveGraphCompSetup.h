// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/WaveCompositionList.h"

#include <QDialog>

class QLabel;
class QRadioButton;
class QTableWidget;

namespace lorvane {

/// "Advanced Waveform Analysis Setup": picks up to six channels of the open capture and its
/// neighbours, whole or as the stretch between the marks, to draw in one graph.
class WaveGraphCompSetup : public QDialog
{
    Q_OBJECT

public:
    /// `available` fills "Current Waveform Items", `selected` (the list as it was left)
    /// "Selected Waveform Items"; a section uses [sectionStart, sectionEnd] ms (-1 when no
    /// stretch is chosen).
    WaveGraphCompSetup(const QList<WaveCompositionItem>& available, double sectionStart,
                       double sectionEnd, const WaveCompositionList& selected = {},
                       QWidget* parent = nullptr);

    /// Add >>: the selected left row to the right list (messages as the list gives them).
    void add();
    /// << Remove: the selected right row.
    void remove();
    /// &Graph: closes with the list when it holds items, else says "Nothing to graph.".
    void graph();
    void setUseSelectedWindow(bool on);

    const WaveCompositionList& selected() const { return m_selected; }
    QTableWidget* currentItems() const { return m_left; }
    QTableWidget* selectedItems() const { return m_right; }

signals:
    void helpRequested(const QString& topic);

private:
    void fill(QTableWidget* table, const QList<WaveCompositionItem>& items);
    void describe(const WaveCompositionItem* item);

    QList<WaveCompositionItem> m_available;
    WaveCompositionList m_selected;
    double m_sectionStart;
    double m_sectionEnd;
    QTableWidget* m_left;
    QTableWidget* m_right;
    QRadioButton* m_entire;
    QRadioButton* m_window;
    QLabel* m_property;
};

} // namespace lorvane
