// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/InterharmonicAnalysis.h"

#include <QList>
#include <QWidget>
#include <utility>

class QChartView;

namespace lorvane {

class WaveBarChart;
class WaveStripChart;
class YExtentsTarget;

/// The interharmonic view: the window's trace, the spectrum and the groups, one at a time.
class WaveInterharmonicPage : public QWidget
{
    Q_OBJECT

public:
    /// Which graph is shown.
    enum class Graph
    {
        Trace,
        Spectrum,
        Groups,
    };

    explicit WaveInterharmonicPage(QWidget* parent = nullptr);

    /// Draws `result` (kept here, the trace points into it) in `color` on the given colours.
    void show(InterharmonicAnalysis::Result result, const QColor& color, const QColor& fore,
              const QColor& back);
    void showGraph(Graph graph);
    Graph graph() const { return m_graph; }
    /// The text block of the trace (the RMS values); empty for none.
    void setTraceText(const QString& text);
    /// Automatic y and the whole window on every graph.
    void zoomOut();
    /// The graph shown, for "&Edit Graph".
    YExtentsTarget* shownTarget() const;
    QList<std::pair<QString, QChartView*>> graphs() const;

    WaveStripChart* trace() const { return m_trace; }
    WaveBarChart* spectrum() const { return m_spectrum; }
    WaveBarChart* groups() const { return m_groups; }

private:
    InterharmonicAnalysis::Result m_result;
    WaveStripChart* m_trace = nullptr;
    WaveBarChart* m_spectrum = nullptr;
    WaveBarChart* m_groups = nullptr;
    Graph m_graph = Graph::Trace;
};

} // namespace lorvane
