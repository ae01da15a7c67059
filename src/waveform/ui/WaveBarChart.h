// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "YExtentsTarget.h"
#include "waveform/GraphSeries.h"

#include <QChartView>
#include <QFont>
#include <functional>

class QValueAxis;

namespace lorvane {

/// A bar graph of one series with a label under each bar and a pointer text over each bar.
class WaveBarChart : public QChartView, public YExtentsTarget
{
    Q_OBJECT

public:
    /// Text shown while the pointer rests on bar `index` holding `value`.
    using HoverText = std::function<QString(int index, double value)>;

    explicit WaveBarChart(QWidget* parent = nullptr);

    /// Shows `series` as bars; an empty series clears the graph.
    void show(const GraphSeries& series, const QColor& color);
    void setHoverText(HoverText text) { m_hoverText = std::move(text); }
    /// Values of the bars shown.
    const QVector<double>& values() const { return m_values; }
    void setManualY(double bottom, double top) override;
    /// Back to the bounds that fit the bars: from 0 to a tenth above the highest.
    void setAutomaticY();
    double yMin() const override;
    double yMax() const override;

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
    QValueAxis* valueAxis() const;

    QVector<double> m_values;
    HoverText m_hoverText;
    /// The x title drawn under the plot while the axis labels are hidden; empty otherwise.
    QString m_xTitle;
    QFont m_xTitleFont;
};

} // namespace lorvane
