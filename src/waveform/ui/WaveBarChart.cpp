// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveBarChart.h"

#include "graph/ui/RoundValueTicks.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCursor>
#include <QFont>
#include <QPainter>
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
    // A bar set without a name would leave a lone colour square as its legend.
    chart()->legend()->setVisible(!series.subsetTitle.isEmpty());
    m_values = series.y;

    auto* set = new QBarSet(series.subsetTitle);
    set->setColor(color);
    // At most about 32 labels fit under the bars; the others stay blank. Categories must be
    // unique, so a blank one is a run of zero-width spaces of its own length (blanks would
    // take room and be cut to an ellipsis).
    const int step = std::max<int>(1, static_cast<int>((series.y.size() + 31) / 32));
    QStringList labels;
    for (int i = 0; i < series.y.size(); ++i) {
        set->append(series.y.at(i));
        const QString text =
            i < series.labels.size() ? series.labels.at(i) : QString::number(series.x.value(i, i));
        labels << (i % step == 0 && !text.isEmpty() ? text : QString(i + 1, QChar(0x200B)));
    }
    auto* bars = new QBarSeries;
    bars->setBarWidth(0.8);
    bars->append(set);
    chart()->addSeries(bars);

    auto* x = new QBarCategoryAxis;
    x->append(labels);
    x->setTitleText(series.xTitle);
    QFont small = x->labelsFont();
    small.setPointSizeF(7.5);
    x->setLabelsFont(small);
    // Short numbers under narrow bars would otherwise be cut to an ellipsis.
    x->setTruncateLabels(false);
    // Group labels ("120 to 180") are wider than their bars: they stand upright.
    const bool wide = std::any_of(series.labels.cbegin(), series.labels.cend(),
                                  [](const QString& label) { return label.size() > 4; });
    if (wide && series.y.size() > 12)
        x->setLabelsAngle(-90);
    // Hundreds of bins leave no room for any text under a bar: the pointer text names them.
    // Hidden labels take their room with them, and the axis lays its title out in what is
    // left: none. The title then goes in the chart's own margin below the axis instead,
    // where it keeps its full width.
    const bool labelsShown = labels.size() <= 64;
    x->setLabelsVisible(labelsShown);
    x->setTitleVisible(labelsShown);
    m_xTitle = labelsShown ? QString() : series.xTitle;
    m_xTitleFont = x->titleFont();
    const int titleHeight = QFontMetrics(m_xTitleFont).height();
    chart()->setMargins(QMargins(4, 4, 4, labelsShown ? 4 : 4 + titleHeight));
    auto* y = new QValueAxis;
    y->setTitleText(series.yTitle);
    RoundValueTicks::follow(y, 10);
    chart()->addAxis(x, Qt::AlignBottom);
    chart()->addAxis(y, Qt::AlignLeft);
    bars->attachAxis(x);
    bars->attachAxis(y);
    setAutomaticY();
    connect(bars, &QBarSeries::hovered, this, [this](bool status, int index, QBarSet*) {
        if (status && m_hoverText && index >= 0 && index < m_values.size())
            QToolTip::showText(QCursor::pos(), m_hoverText(index, m_values.at(index)), this);
        else
            QToolTip::hideText();
    });
}

QValueAxis* WaveBarChart::valueAxis() const
{
    const QList<QAbstractAxis*> axes = chart()->axes(Qt::Vertical);
    return axes.isEmpty() ? nullptr : qobject_cast<QValueAxis*>(axes.first());
}

void WaveBarChart::setManualY(double bottom, double top)
{
    if (QValueAxis* y = valueAxis())
        y->setRange(bottom, top);
}

void WaveBarChart::setAutomaticY()
{
    const double top =
        m_values.isEmpty() ? 1.0 : *std::max_element(m_values.cbegin(), m_values.cend());
    setManualY(0, top > 0 ? top * 1.1 : 1.0);
}

double WaveBarChart::yMin() const
{
    const QValueAxis* y = valueAxis();
    return y ? y->min() : 0;
}

double WaveBarChart::yMax() const
{
    const QValueAxis* y = valueAxis();
    return y ? y->max() : 1;
}

void WaveBarChart::drawForeground(QPainter* painter, const QRectF& rect)
{
    QChartView::drawForeground(painter, rect);
    if (m_xTitle.isEmpty())
        return;
    // Centred under the plot, in the bottom margin kept free for it.
    const int height = QFontMetrics(m_xTitleFont).height();
    const QRectF plot = chart()->mapToScene(chart()->plotArea()).boundingRect();
    const QRectF line(plot.left(),
                      chart()->mapToScene(chart()->rect()).boundingRect().bottom() - height - 4,
                      plot.width(), height);
    painter->save();
    painter->setFont(m_xTitleFont);
    painter->setPen(chart()->titleBrush().color());
    painter->drawText(line, Qt::AlignCenter, m_xTitle);
    painter->restore();
}

} // namespace lorvane
