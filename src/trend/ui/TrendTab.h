// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/TrendView.h"

#include <QWidget>
#include <optional>

namespace lorvane {

class ChartCanvas;
class TrendPreviewCanvas;
class TrendSession;

/// One tab of the trend window: the Preview over the whole span above the Viewport over the
/// part chosen, both drawing the tab's sets through their level-of-detail series. The tab
/// shows what the session holds; the user's drags and zooms come out as signals for the
/// window to pass to the session.
class TrendTab : public QWidget
{
    Q_OBJECT

public:
    /// Sets beyond this many are drawn without a legend.
    static constexpr int maxLegendSets = 16;

    explicit TrendTab(QWidget* parent = nullptr);

    /// Draws tab `index` of `session` anew: its sets, graph type, colours and extents.
    void showView(const TrendSession& session, int index);
    /// Shows the extents of `view` (after a command), keeping the drawn series.
    void showExtents(const TrendView& view);

    TrendPreviewCanvas* preview() const { return m_preview; }
    ChartCanvas* viewport() const { return m_viewport; }

signals:
    /// The Preview's window was moved or resized.
    void viewportXAsked(const lorvane::AxisRange& x);
    /// The user zoomed or panned the Viewport itself: its x and both y ranges now.
    void viewportZoomed(const lorvane::TrendExtentsOfGraph& shown);
    void cursorMoved(double x);

private:
    void showGraph(ChartCanvas* canvas, const TrendExtentsOfGraph& extents, bool hasRight,
                   bool asBounds);

    TrendPreviewCanvas* m_preview;
    ChartCanvas* m_viewport;
    bool m_hasRight = false;
    struct Shown
    {
        TrendExtentsOfGraph preview;
        TrendExtentsOfGraph viewport;
    };
    /// What the graphs show now; nothing after the series changed.
    std::optional<Shown> m_shown;
    bool m_milliseconds = false;
};

} // namespace lorvane
