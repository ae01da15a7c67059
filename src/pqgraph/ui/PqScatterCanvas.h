// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ui/ChartCanvas.h"

#include <optional>

namespace lorvane {

class PqGraphSession;

/// The chart of the 2D page. Its events are painted by the canvas itself, one marker a pixel
/// and channel, rather than held as chart points: a chart item per point takes seconds for
/// the tens of thousands of events of a long range, a marker stamped per pixel milliseconds.
/// The chart keeps the axes, the envelope's lines, the legend (its channel series hold no
/// points), zoom and pan.
class PqScatterCanvas : public ChartCanvas
{
    Q_OBJECT

public:
    struct Hit
    {
        int channel = -1;
        qsizetype index = -1;
    };

    explicit PqScatterCanvas(const PqGraphSession& session, QWidget* parent = nullptr);

    /// The event drawn nearest to widget position `at`, within a few pixels.
    std::optional<Hit> eventAt(const QPointF& at) const;
    /// The read-out of the event under the pointer; empty when none.
    const QString& eventText() const { return m_eventText; }

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// Chart position of an event of `seconds` and `percent` in the view.
    QPointF chartPoint(double seconds, double percent) const;

    const PqGraphSession& m_session;
    std::optional<Hit> m_hover;
    QString m_eventText;
};

} // namespace lorvane
