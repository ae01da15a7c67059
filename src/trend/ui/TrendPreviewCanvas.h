// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ui/ChartCanvas.h"

#include <optional>

namespace lorvane {

/// The Preview of a trend tab: the whole span of the data, with the span the Viewport shows
/// as a shaded window over it. Dragging inside the window moves it, dragging one of its edges
/// resizes it, and a press beside it centres it there; every step tells the Viewport at once.
class TrendPreviewCanvas : public ChartCanvas
{
    Q_OBJECT

public:
    /// How near to an edge, in pixels, a press takes that edge.
    static constexpr int edgeGrip = 6;

    explicit TrendPreviewCanvas(QWidget* parent = nullptr);

    void setWindow(const AxisRange& x);
    const AxisRange& window() const { return m_window; }
    /// The window's left and right edges in widget pixels.
    std::pair<double, double> windowEdges() const;

signals:
    void windowMoved(const lorvane::AxisRange& x);

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class Grip
    {
        Body,
        Left,
        Right,
    };
    void move(const AxisRange& x);

    AxisRange m_window;
    std::optional<Grip> m_grip;
    double m_pressX = 0;
    AxisRange m_pressWindow;
};

} // namespace lorvane
