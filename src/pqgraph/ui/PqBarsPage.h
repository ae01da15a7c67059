// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ui/PictureCanvas.h"
#include "pqgraph/PqCounts.h"

#include <optional>

namespace lorvane {

/// "PQ Graph - 3D": the count matrix as bars over a floor of magnitude bins by duration bins,
/// seen from a point the user moves: a horizontal drag turns the floor, a vertical drag tilts
/// it. Drawn with the painter (back to front), so that print and copy show the same view.
class PqBarsPage : public PictureCanvas
{
    Q_OBJECT

public:
    explicit PqBarsPage(QWidget* parent = nullptr);

    void setCounts(const PqCounts::Matrix& counts);
    /// The view: turn about the vertical in degrees (0 looks along the magnitude bins), tilt
    /// above the floor in degrees (kept from 5 to 85).
    void setView(double turn, double tilt);
    double turn() const { return m_turn; }
    double tilt() const { return m_tilt; }

protected:
    void paintPicture(QPainter& painter, const QRectF& area) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    PqCounts::Matrix m_counts{};
    double m_turn = -35;
    double m_tilt = 35;
    std::optional<QPointF> m_dragFrom;
};

} // namespace lorvane
