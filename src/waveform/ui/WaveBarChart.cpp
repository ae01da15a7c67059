// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveBarChart.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCursor>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>

namespace lorvane {

WaveBarChart::WaveBarChart(QWidget* parent) : QChartView(new QChart, parent)
{
    chart()->legend()->setAlignment(Qt::AlignTop);
    chart()->setMargins(QMargins(4, 4, 4, 4));
    setRenderHint(QPainter::Antialiasing);
    setMinimumHeight(160);
}

void WaveBarChart::show(const GraphSeries& series, const QColor& color)
{
    chart()->removeAllSeries();
    for (QAbstractAxis* axis : chart()->axes())
        chart()->removeAxis(axis);
    chart()->setTitle(series.title);
    m_values = series.y;

    auto* set = new QBarSet(series.subsetTitle);
    set->setColor(color);
    QStringList labels;
    for (int i = 0; i < series.y.size(); ++i) {
        set->append(series.y.at(i));
        labels << (i < series.labels.size() ? series.labels.at(i)
                                            : QString::number(series.x.value(i, i)));
    }
    auto* bars = new QBarSeries;
    bars->setBarWidth(0.8);
    bars->append(set);
    chart()->addSeries(bars);

    auto* x = new QBarCategoryAxis;
    x->append(labels);
    x->setTitleText(series.xTitle);
    // Long spectra have many labels: upright ones overlap less.
    x->setLabelsAngle(labels.size() > 40 ? -90 : 0);
    auto* y = new QValueAxis;
    y->setTitleText(series.yTitle);
    const double top =
        series.y.isEmpty() ? 1.0 : *std::max_element(series.y.cbegin(), series.y.cend());
    y->setRange(0, top > 0 ? top * 1.1 : 1.0);
    y->setLabelFormat(QStringLiteral("%.1f"));
    chart()->addAxis(x, Qt::AlignBottom);
    chart()->addAxis(y, Qt::AlignLeft);
    bars->attachAxis(x);
    bars->attachAxis(y);
    connect(bars, &QBarSeries::hovered, this, [this](bool status, int index, QBarSet*) {
        if (status && m_hoverText && index >= 0 && index < m_values.size())
            QToolTip::showText(QCursor::pos(), m_hoverText(index, m_values.at(index)), this);
        else
            QToolTip::hideText();
    });
}

} // namespace lorvane
