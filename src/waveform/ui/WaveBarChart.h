// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/GraphSeries.h"

#include <QChartView>
#include <functional>

namespace lorvane {

/// A bar graph of one series with a label under each bar and a pointer text over each bar.
class WaveBarChart : public QChartView
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

private:
    QVector<double> m_values;
    HoverText m_hoverText;
};

} // namespace lorvane
