// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/InterharmonicAnalysis.h"
#include "waveform/WaveDisplaySettings.h"

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

    /// Draws `result` (kept here, the trace points into it) in the colours of `settings`, the
    /// trace in the colour of `channel`.
    void show(InterharmonicAnalysis::Result result, const WaveDisplaySettings& settings,
              int channel);
    void showGraph(Graph graph);
    Graph graph() const { return m_graph; }
    /// Writes the RMS of each (label, value) on the trace ("Van = 120.00"); none for empty.
    void setRms(const QList<std::pair<QString, double>>& values);
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
