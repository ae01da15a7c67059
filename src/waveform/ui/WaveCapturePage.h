// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "WaveStripChart.h"

#include <QList>
#include <QWidget>
#include <functional>
#include <utility>

class QChartView;
class QScrollBar;
class QTimer;
class QVBoxLayout;

namespace lorvane {

class WaveBarChart;
class WaveGraphSession;

/// The capture view of the waveform window: a chart per strip of the session, the harmonic
/// bars of the clicked cycle in the detail view, and the scroll bar of a zoomed range. It
/// draws what the session holds; clicks, drags and right clicks go out as signals.
class WaveCapturePage : public QWidget
{
    Q_OBJECT

public:
    explicit WaveCapturePage(WaveGraphSession& session, QWidget* parent = nullptr);

    /// Makes the charts of the session's strips anew (after an open or new settings);
    /// `settingUp` hears the number of each strip as it is set up.
    void rebuild(const std::function<void(int strip)>& settingUp = {});
    /// Shows the session's state: which strips, their annotations, the statistics text and
    /// harmonics, the range and the scroll bar.
    void refresh();
    void setZoomMode(WaveStripChart::ZoomMode mode);
    /// The whole capture with automatic y on every strip.
    void zoomOut();

    /// Chart of strip `index`; nullptr when there is none.
    WaveStripChart* strip(int index) const;
    /// The chart of the focus channel.
    WaveStripChart* focusStrip() const;
    WaveBarChart* harmonicChart() const { return m_harmonics; }
    /// The graphs shown with their names, in the order of the export list.
    QList<std::pair<QString, QChartView*>> graphs() const;

signals:
    void clicked(int channel, double x);
    void zoomRequested(WaveStripChart* chart, double x0, double x1, double y0, double y1);
    void menuRequested(WaveStripChart* chart, int channel, double x, const QPoint& at);
    /// The scroll bar moved a zoomed range (the session holds it already).
    void scrolled();

private:
    WaveGraphSession& m_session;
    QVBoxLayout* m_graphLayout = nullptr;
    QList<WaveStripChart*> m_charts;
    WaveBarChart* m_harmonics = nullptr;
    QScrollBar* m_scroll = nullptr;
    QTimer* m_waveTimer = nullptr;
};

} // namespace lorvane
