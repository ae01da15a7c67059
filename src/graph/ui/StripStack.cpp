// SPDX-License-Identifier: GPL-3.0-or-later
#include "StripStack.h"

#include "ChartCanvas.h"

#include <QChart>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace lorvane {

StripStack::StripStack(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_splitter = new QSplitter(Qt::Vertical, this);
    m_splitter->setChildrenCollapsible(false);
    layout->addWidget(m_splitter);
}

ChartCanvas* StripStack::addStrip()
{
    auto* strip = new ChartCanvas(m_splitter);
    m_splitter->addWidget(strip);
    if (!m_strips.isEmpty())
        m_strips.last()->setXLabelsVisible(false);
    m_strips.append(strip);
    follow(strip);
    connect(strip->chart(), &QChart::plotAreaChanged, this, [this] {
        if (!m_alignPending) {
            m_alignPending = true;
            QTimer::singleShot(0, this, &StripStack::alignPlots);
        }
    });
    return strip;
}

void StripStack::alignPlots()
{
    m_alignPending = false;
    // Each strip's plot edges as its own axis labels would put them, without the padding
    // added here before; every strip is then padded to the widest labels, so that one x
    // value stands at one pixel column in all strips.
    struct Edges
    {
        double left;
        double right;
    };
    QList<Edges> natural;
    Edges widest{0, 0};
    for (ChartCanvas* strip : std::as_const(m_strips)) {
        const QChart* chart = strip->chart();
        const QMargins padding = chart->margins() - ChartCanvas::margins;
        const QRectF plot = chart->plotArea();
        const Edges own{plot.left() - padding.left(),
                        chart->size().width() - plot.right() - padding.right()};
        natural << own;
        widest = {std::max(widest.left, own.left), std::max(widest.right, own.right)};
    }
    for (qsizetype i = 0; i < m_strips.size(); ++i) {
        QMargins margins = ChartCanvas::margins;
        margins.setLeft(margins.left() + int(std::lround(widest.left - natural[i].left)));
        margins.setRight(margins.right() + int(std::lround(widest.right - natural[i].right)));
        if (m_strips[i]->chart()->margins() != margins)
            m_strips[i]->chart()->setMargins(margins);
    }
}

void StripStack::follow(ChartCanvas* source)
{
    connect(source, &ChartCanvas::zoomed, this, [this, source](const ZoomStep& step) {
        for (ChartCanvas* strip : std::as_const(m_strips))
            if (strip != source)
                strip->apply(step, true);
    });
    connect(source, &ChartCanvas::cursorMoved, this, [this, source](double x) {
        for (ChartCanvas* strip : std::as_const(m_strips))
            if (strip != source)
                strip->setCursorX(x);
    });
}

void StripStack::fitToData()
{
    std::optional<AxisRange> x;
    for (ChartCanvas* strip : std::as_const(m_strips)) {
        if (!strip->fitToData())
            continue;
        const AxisRange own = strip->zoom().bounds().x;
        x = x ? AxisRange{std::min(x->min, own.min), std::max(x->max, own.max)} : own;
    }
    if (!x)
        return;
    for (ChartCanvas* strip : std::as_const(m_strips))
        strip->setBounds({*x, strip->zoom().bounds().y});
}

} // namespace lorvane
