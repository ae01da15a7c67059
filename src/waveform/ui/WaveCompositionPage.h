// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/WaveGraphSession.h"
#include "waveform/WaveMarks.h"
#include "waveform/WaveZoomStack.h"

#include <QWidget>

namespace lorvane {

class WaveStripChart;

/// The advanced view: the channels of the composition list in one graph over a shared time
/// axis from 0 ms, with its own zoom stack and marks.
class WaveCompositionPage : public QWidget
{
    Q_OBJECT

public:
    explicit WaveCompositionPage(QWidget* parent = nullptr);

    /// Draws `curves` (kept here) with the colours of `settings`.
    void show(QList<WaveGraphSession::CompositionCurve> curves,
              const WaveDisplaySettings& settings);
    WaveStripChart* chart() const { return m_chart; }
    WaveZoomStack& zoom() { return m_zoom; }
    WaveMarks& marks() { return m_marks; }
    /// The whole composition with automatic y.
    void zoomOut();
    /// Shows the zoom range and the marks again.
    void refresh();
    const QList<WaveGraphSession::CompositionCurve>& curves() const { return m_curves; }

signals:
    void menuRequested(double x, const QPoint& at);

private:
    WaveStripChart* m_chart = nullptr;
    QList<WaveGraphSession::CompositionCurve> m_curves;
    WaveZoomStack m_zoom;
    WaveMarks m_marks;
};

} // namespace lorvane
