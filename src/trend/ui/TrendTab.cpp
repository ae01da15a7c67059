// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendTab.h"

#include "TrendPreviewCanvas.h"
#include "graph/DataBounds.h"
#include "graph/ui/TickLabels.h"
#include "trend/BarShapeSeries.h"
#include "trend/TrendSession.h"
#include "trend/TrendTexts.h"
#include "trend/TrendTime.h"
#include "trend/TrendZoom.h"

#include <QLineSeries>
#include <QScatterSeries>
#include <QVBoxLayout>

namespace lorvane {

namespace {

QColor colourOf(quint32 rgb)
{
    return QColor::fromRgb(QRgb(0xFF000000u | rgb));
}

/// A range the chart can draw: a set of equal values keeps its one value as the centre.
AxisRange drawable(const AxisRange& range)
{
    return range.span() > 0 ? range : DataBounds::withMargin(range);
}

bool inside(const AxisRange& outer, const AxisRange& inner)
{
    return outer.min <= inner.min && inner.max <= outer.max;
}

AxisRange unite(const AxisRange& a, const AxisRange& b)
{
    return {std::min(a.min, b.min), std::max(a.max, b.max)};
}

void paint(ChartCanvas* canvas, const TrendView& view)
{
    QChart* chart = canvas->chart();
    chart->setBackgroundBrush(colourOf(view.backColour));
    const QList<QAbstractAxis*> axes = chart->axes();
    for (QAbstractAxis* axis : axes) {
        axis->setGridLineColor(colourOf(view.gridColour));
        axis->setLabelsColor(colourOf(view.textColour));
        axis->setTitleBrush(colourOf(view.textColour));
    }
    chart->legend()->setLabelColor(colourOf(view.textColour));
}

} // namespace

TrendTab::TrendTab(QWidget* parent)
    : QWidget(parent), m_preview(new TrendPreviewCanvas), m_viewport(new ChartCanvas)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_preview, 2);
    layout->addWidget(m_viewport, 5);
    m_viewport->setZoomAxes(ChartCanvas::ZoomAxes::Both);
    connect(m_preview, &TrendPreviewCanvas::windowMoved, this, &TrendTab::viewportXAsked);
    connect(m_viewport, &ChartCanvas::zoomed, this, [this] {
        const Viewport shown = m_viewport->zoom().view();
        emit viewportZoomed({shown.x, shown.y, m_viewport->rightView()});
    });
    connect(m_viewport, &ChartCanvas::cursorMoved, this, &TrendTab::cursorMoved);
}

void TrendTab::showView(const TrendSession& session, int index)
{
    const TrendView& view = session.views().at(index);
    const QList<std::shared_ptr<const PlotSeries>>& series = session.series(index);
    m_milliseconds = view.milliseconds;
    m_hasRight = false;
    for (ChartCanvas* canvas : {static_cast<ChartCanvas*>(m_preview), m_viewport}) {
        canvas->clearSeries();
        canvas->setWallClockX(!view.milliseconds);
        const QString xTitle = view.milliseconds
                                   ? TrendTexts::secondsFrom(TickLabels::value(view.msStart, true))
                                   : QString();
        canvas->setTitles(canvas == m_preview ? QString() : QString(), xTitle, QString());
    }
    m_viewport->setLimits({view.milliseconds ? 0.001 : TrendZoom::minViewportXSpan, 0});
    // Each series added refills the ones before it: over a span before the data that costs
    // a search a series, where the data's span would draw every set again for each set.
    const AxisRange span = session.dataSpan();
    for (ChartCanvas* canvas : {static_cast<ChartCanvas*>(m_preview), m_viewport})
        canvas->setBounds({{span.min - 2, span.min - 1}, {0, 1}});
    m_shown.reset();
    for (int i = 0; i < view.sets.size(); ++i) {
        const GraphSet& set = view.sets.at(i);
        const auto axis =
            set.axis == TrendAxis::Right ? ChartCanvas::YAxis::Right : ChartCanvas::YAxis::Left;
        m_hasRight = m_hasRight || set.axis == TrendAxis::Right;
        for (ChartCanvas* canvas : {static_cast<ChartCanvas*>(m_preview), m_viewport}) {
            QXYSeries* look = nullptr;
            std::shared_ptr<const PlotSeries> data = series.at(i);
            if (view.type == TrendGraphType::Point && canvas == m_viewport) {
                auto* points = new QScatterSeries;
                points->setMarkerSize(5);
                points->setBorderColor(colourOf(set.colour));
                look = points;
            } else {
                look = new QLineSeries;
                if (view.type == TrendGraphType::Bar && canvas == m_viewport)
                    data = std::make_shared<BarShapeSeries>(
                        data, std::clamp(0.0, set.minimum, set.maximum));
            }
            look->setName(set.name);
            // A cosmetic pen is drawn as it stands; a scaled one is stroked into a path first,
            // which for 48 sets of a few thousand corners costs more than all the rest.
            QPen pen(colourOf(set.colour),
                     view.type == TrendGraphType::Bar && canvas == m_viewport ? 3 : 1);
            pen.setCosmetic(true);
            look->setPen(pen);
            look->setColor(colourOf(set.colour));
            canvas->addSeries(look, data, axis);
        }
    }
    // The Preview leaves the names to the Viewport; past a screenful of names the list would
    // hide the plot, and the capture panel names the sets instead.
    m_preview->chart()->legend()->setVisible(false);
    m_viewport->chart()->legend()->setVisible(view.sets.size() <= maxLegendSets);
    paint(m_preview, view);
    paint(m_viewport, view);
    showExtents(view);
}

void TrendTab::showExtents(const TrendView& view)
{
    // A drag of the Preview's window changes the Viewport alone: the Preview keeps what it
    // drew.
    if (!m_shown || !(m_shown->preview == view.preview))
        showGraph(m_preview, view.preview, m_hasRight, true);
    if (!m_shown || !(m_shown->viewport == view.viewport))
        showGraph(m_viewport, view.viewport, m_hasRight, false);
    m_shown = Shown{view.preview, view.viewport};
    m_preview->setWindow(view.viewport.x);
    m_viewport->setCursorX(view.cursor);
}

void TrendTab::showGraph(ChartCanvas* canvas, const TrendExtentsOfGraph& extents, bool hasRight,
                         bool asBounds)
{
    const Viewport wanted{drawable(extents.x), drawable(extents.left)};
    Viewport bounds = canvas->zoom().bounds();
    if (asBounds) {
        bounds = wanted;
        canvas->setBounds(bounds);
    } else if (!inside(bounds.x, wanted.x) || !inside(bounds.y, wanted.y) || bounds.x.span() <= 0) {
        // The Viewport's own zooms and pans may reach twice the span and twenty times the
        // height it shows now, as the zoom buttons may.
        bounds = {unite(TrendZoom::scaled(wanted.x, TrendZoom::maxViewportXShare), wanted.x),
                  unite(TrendZoom::scaled(wanted.y, TrendZoom::maxViewportYShare), wanted.y)};
        canvas->setBounds(bounds);
    }
    canvas->apply(ZoomStep{ZoomStep::Kind::Push, wanted});
    if (hasRight) {
        // The right axis follows the left one's share of its bounds: bounds chosen so that the
        // share shown now is exactly the right range asked for.
        const AxisRange right = drawable(extents.right);
        const double scale = right.span() / wanted.y.span();
        const double low = right.min - (wanted.y.min - bounds.y.min) * scale;
        canvas->setRightBounds({low, low + bounds.y.span() * scale});
    }
}

} // namespace lorvane
