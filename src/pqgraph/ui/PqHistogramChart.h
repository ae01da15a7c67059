// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ui/PictureCanvas.h"
#include "pqgraph/PqCounts.h"

namespace lorvane {

/// The magnitude histogram: the count of each magnitude bin as a bar against the left axis,
/// the cumulative percent as a line against the right axis (0 to 100 %).
class PqHistogramChart : public PictureCanvas
{
    Q_OBJECT

public:
    explicit PqHistogramChart(QWidget* parent = nullptr);

    void setSums(const PqCounts::Sums& sums);

protected:
    void paintPicture(QPainter& painter, const QRectF& area) override;

private:
    PqCounts::Sums m_sums{};
};

} // namespace lorvane
