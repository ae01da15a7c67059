// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqHistogramChart.h"

#include "graph/NiceTicks.h"
#include "pqgraph/PqGraphTexts.h"

#include <QPainter>
#include <algorithm>

namespace lorvane {

PqHistogramChart::PqHistogramChart(QWidget* parent) : PictureCanvas(parent)
{
    setMinimumSize(420, 300);
}

void PqHistogramChart::setSums(const PqCounts::Sums& sums)
{
    m_sums = sums;
    update();
}

void PqHistogramChart::paintPicture(QPainter& painter, const QRectF& area)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = painter.font();
    const QFontMetricsF metrics(font);
    const double line = metrics.height();
    // Room for the title above, the axis titles and tick labels beside, the slanted bin
    // labels below.
    const QRectF plot = area.adjusted(line * 4.5, line * 3, -line * 4.5, -line * 6);
    qint64 highest = 0;
    for (const PqCounts::Sum& sum : m_sums)
        highest = std::max(highest, sum.count);
    const AxisTicks left = NiceTicks::linear({0, double(std::max<qint64>(highest, 1))}, 6);
    const double top = std::max(left.values.last(), double(std::max<qint64>(highest, 1)));
    const AxisTicks right = NiceTicks::linear({0, 100}, 5);

    painter.setPen(QPen(QColor(220, 220, 220), 1));
    for (const double value : left.values) {
        const double y = plot.bottom() - value / top * plot.height();
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    }
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(plot);
    for (const double value : left.values) {
        const double y = plot.bottom() - value / top * plot.height();
        painter.drawLine(QPointF(plot.left() - 4, y), QPointF(plot.left(), y));
        painter.drawText(QRectF(plot.left() - line * 3.2, y - line / 2, line * 2.9, line),
                         Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(value, 'f', left.decimals));
    }
    for (const double value : right.values) {
        const double y = plot.bottom() - value / 100 * plot.height();
        painter.drawLine(QPointF(plot.right(), y), QPointF(plot.right() + 4, y));
        painter.drawText(QRectF(plot.right() + 6, y - line / 2, line * 3, line),
                         Qt::AlignLeft | Qt::AlignVCenter, QString::number(value));
    }

    const int bins = PqCounts::magnitudeBins;
    const double slot = plot.width() / bins;
    QPolygonF cumulative;
    for (int m = 0; m < bins; ++m) {
        const PqCounts::Sum& sum = m_sums[m];
        const double x = plot.left() + m * slot;
        const double h = double(sum.count) / top * plot.height();
        painter.setPen(QPen(QColor(30, 60, 140), 1));
        painter.setBrush(QColor(80, 130, 210));
        if (sum.count > 0)
            painter.drawRect(QRectF(x + slot * 0.15, plot.bottom() - h, slot * 0.7, h));
        if (sum.cumulativePercent)
            cumulative << QPointF(x + slot / 2,
                                  plot.bottom() - *sum.cumulativePercent / 100 * plot.height());
        // The bin labels slant down to the left so that "190 to 200" fits a narrow slot.
        painter.save();
        painter.translate(x + slot / 2, plot.bottom() + 6);
        painter.rotate(-45);
        painter.setPen(Qt::black);
        painter.drawText(QRectF(-line * 6, -line / 2, line * 6, line),
                         Qt::AlignRight | Qt::AlignVCenter, PqCounts::magnitudeLabels().at(m));
        painter.restore();
    }
    painter.setPen(QPen(QColor(200, 40, 40), 2));
    painter.setBrush(QColor(200, 40, 40));
    painter.drawPolyline(cumulative);
    for (const QPointF& at : std::as_const(cumulative))
        painter.drawEllipse(at, 3, 3);

    painter.setPen(Qt::black);
    painter.drawText(QRectF(plot.left(), area.bottom() - line * 1.4, plot.width(), line),
                     Qt::AlignCenter, PqGraphTexts::voltageMagnitudeTitle());
    auto vertical = [&](double x, double angle, const QString& text) {
        painter.save();
        painter.translate(x, plot.center().y());
        painter.rotate(angle);
        painter.drawText(QRectF(-plot.height() / 2, -line / 2, plot.height(), line),
                         Qt::AlignCenter, text);
        painter.restore();
    };
    vertical(area.left() + line * 0.8, -90, PqGraphTexts::countsTitle());
    vertical(area.right() - line * 0.8, 90, PqGraphTexts::cumulativeTitle());
    QFont bold = font;
    bold.setBold(true);
    bold.setPointSizeF(font.pointSizeF() * 1.3);
    painter.setFont(bold);
    painter.drawText(QRectF(area.left(), area.top() + 4, area.width(), line * 2), Qt::AlignCenter,
                     PqGraphTexts::histogramTitle());
    painter.setFont(font);
}

} // namespace lorvane
