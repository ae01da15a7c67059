// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QWidget>

class QSplitter;

namespace lorvane {

class ChartCanvas;

/// Charts stacked over one shared x axis: a zoom, pan, undo or reset in any strip is made in
/// every strip (each keeps its own y), the cursor stands at the same x in all, and only the
/// bottom strip labels the x axis. The plots are aligned: one x stands at one pixel column.
class StripStack : public QWidget
{
    Q_OBJECT

public:
    explicit StripStack(QWidget* parent = nullptr);

    /// A new strip at the bottom; the stack owns it.
    ChartCanvas* addStrip();
    const QList<ChartCanvas*>& strips() const { return m_strips; }
    /// Bounds of every strip from its data, with the x bounds of all united.
    void fitToData();

private:
    void follow(ChartCanvas* source);
    void alignPlots();

    QSplitter* m_splitter = nullptr;
    QList<ChartCanvas*> m_strips;
    bool m_alignPending = false;
};

} // namespace lorvane
