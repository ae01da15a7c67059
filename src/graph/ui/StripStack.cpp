// SPDX-License-Identifier: GPL-3.0-or-later
#include "StripStack.h"

#include "ChartCanvas.h"

#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

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
    return strip;
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
