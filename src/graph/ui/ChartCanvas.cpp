// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChartCanvas.h"

#include "TickLabels.h"
#include "graph/DataBounds.h"
#include "graph/NiceTicks.h"

#include <QCategoryAxis>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QRubberBand>
#include <QXYSeries>
#include <algorithm>
#include <cmath>
#include <limits>

namespace lorvane {

namespace {

/// Pixels a press may move and still count as a click.
constexpr int clickSlack = 4;
/// Pixels from a point within which the pointer shows it.
constexpr double hoverRadius = 10;
/// Pixels a tick label needs along each axis, which bounds the number of ticks.
constexpr double xTickPixels = 110;
constexpr double yTickPixels = 40;
/// View scale of one wheel notch towards the pointer.
constexpr double wheelFactor = 0.8;

} // namespace

ChartCanvas::ChartCanvas(QWidget* parent) : QChartView(parent)
{
    auto* chart = new QChart;
    chart->setMargins(margins);
    chart->legend()->setAlignment(Qt::AlignRight);
    chart->legend()->setVisible(false);
    m_x = new QCategoryAxis;
    m_y = new QCategoryAxis;
    m_right = new QCategoryAxis;
    for (QCategoryAxis* axis : {m_x, m_y, m_right})
        axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    chart->addAxis(m_x, Qt::AlignBottom);
    chart->addAxis(m_y, Qt::AlignLeft);
    chart->addAxis(m_right, Qt::AlignRight);
    // The grid follows the left ticks; lines at the right axis' round values would cross them.
    m_right->setGridLineVisible(false);
    m_right->setVisible(false);
    setChart(chart);
    // The plot width decides how many points are drawn: a new width (resize, other labels,
    // alignment with other strips) refills the series.
    connect(chart, &QChart::plotAreaChanged, this, [this](const QRectF& plot) {
        if (static_cast<int>(plot.width()) != m_filledColumns)
            showView();
    });
    setFrameShape(QFrame::NoFrame);
    setRenderHint(QPainter::Antialiasing);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    m_band = new QRubberBand(QRubberBand::Rectangle, viewport());
    m_zoom.setBounds({{0, 1}, {0, 1}});
    showView();
}

ChartCanvas::~ChartCanvas() = default;

void ChartCanvas::setWallClockX(bool wallClock)
{
    m_wallClock = wallClock;
    showView();
}

void ChartCanvas::setLogX(bool logX)
{
    m_logX = logX;
    showView();
}

void ChartCanvas::setXTickText(std::function<QString(double)> text)
{
    m_xTickText = std::move(text);
    showView();
}

double ChartCanvas::toAxis(double x) const
{
    if (!m_logX)
        return x;
    return x > 0 ? std::log10(x) : std::numeric_limits<double>::quiet_NaN();
}

double ChartCanvas::fromAxis(double x) const
{
    return m_logX ? std::pow(10.0, x) : x;
}

void ChartCanvas::setTitles(const QString& title, const QString& xTitle, const QString& yTitle)
{
    chart()->setTitle(title);
    m_x->setTitleText(xTitle);
    m_y->setTitleText(yTitle);
}

void ChartCanvas::setRightTitle(const QString& title)
{
    m_right->setTitleText(title);
}

void ChartCanvas::setUnit(YAxis axis, const QString& unit)
{
    m_units[int(axis)] = unit;
}

void ChartCanvas::addSeries(QXYSeries* look, std::shared_ptr<const PlotSeries> data, YAxis axis)
{
    chart()->addSeries(look);
    look->attachAxis(m_x);
    look->attachAxis(axis == YAxis::Right ? m_right : m_y);
    if (axis == YAxis::Right && !m_rightUsed) {
        m_rightUsed = true;
        m_right->setVisible(true);
    }
    m_series.append({look, std::move(data), axis});
    chart()->legend()->setVisible(m_series.size() > 1);
    showView();
}

void ChartCanvas::clearSeries()
{
    for (const Bound& bound : std::as_const(m_series)) {
        chart()->removeSeries(bound.look);
        delete bound.look;
    }
    m_series.clear();
    m_rightUsed = false;
    m_right->setVisible(false);
    m_hover.reset();
    m_hoverText.clear();
}

int ChartCanvas::pointsShown() const
{
    int count = 0;
    for (const Bound& bound : m_series)
        count += static_cast<int>(bound.look->count());
    return count;
}

void ChartCanvas::setBounds(const Viewport& bounds)
{
    m_zoom.setBounds({{toAxis(bounds.x.min), toAxis(bounds.x.max)}, bounds.y});
    showView();
}

void ChartCanvas::setRightBounds(const AxisRange& bounds)
{
    m_rightBounds = bounds;
    showView();
}

AxisRange ChartCanvas::rightView() const
{
    const AxisRange& left = m_zoom.view().y;
    return {rightOf(left.min), rightOf(left.max)};
}

double ChartCanvas::rightOf(double leftY) const
{
    return m_rightBounds ? m_zoom.bounds().y.mappedTo(leftY, *m_rightBounds) : leftY;
}

double ChartCanvas::leftOf(double rightY) const
{
    return m_rightBounds ? m_rightBounds->mappedTo(rightY, m_zoom.bounds().y) : rightY;
}

bool ChartCanvas::fitToData()
{
    QList<std::shared_ptr<const PlotSeries>> all;
    QList<std::shared_ptr<const PlotSeries>> byAxis[2];
    for (const Bound& bound : std::as_const(m_series)) {
        all << bound.data;
        byAxis[int(bound.axis)] << bound.data;
    }
    const std::optional<Viewport> bounds = DataBounds::of(all);
    if (!bounds)
        return false;
    const std::optional<Viewport> left = DataBounds::of(byAxis[int(YAxis::Left)]);
    const std::optional<Viewport> right = DataBounds::of(byAxis[int(YAxis::Right)]);
    if (right)
        m_rightBounds = right->y;
    else
        m_rightBounds.reset();
    // With every series on the right, the left axis has nothing of its own: it mirrors.
    setBounds({bounds->x, left ? left->y : bounds->y});
    return true;
}

void ChartCanvas::setLimits(const ZoomState::Limits& limits)
{
    m_zoom.setLimits(limits);
}

bool ChartCanvas::apply(const ZoomStep& step, bool xOnly)
{
    Viewport asked = step.view;
    if (xOnly)
        asked.y = m_zoom.view().y;
    bool changed = false;
    switch (step.kind) {
    case ZoomStep::Kind::Push:
        changed = m_zoom.push(asked);
        break;
    case ZoomStep::Kind::Slide:
        changed = m_zoom.slide(asked);
        break;
    case ZoomStep::Kind::Undo:
        changed = m_zoom.undo();
        break;
    case ZoomStep::Kind::Reset:
        changed = m_zoom.reset();
        break;
    }
    if (changed)
        showView();
    return changed;
}

void ChartCanvas::userStep(const ZoomStep& step)
{
    if (apply(step))
        emit zoomed(step);
}

void ChartCanvas::setXLabelsVisible(bool visible)
{
    m_x->setLabelsVisible(visible);
    m_x->setTitleVisible(visible);
}

void ChartCanvas::setMarks(const QList<ChartMark>& marks)
{
    m_marks = marks;
    viewport()->update();
}

void ChartCanvas::setCursorX(std::optional<double> x)
{
    m_cursor = x ? std::optional<double>(toAxis(*x)) : std::nullopt;
    viewport()->update();
}

std::optional<double> ChartCanvas::cursorX() const
{
    return m_cursor ? std::optional<double>(fromAxis(*m_cursor)) : std::nullopt;
}

QStringList ChartCanvas::cursorReadout() const
{
    QStringList lines;
    if (!m_cursor)
        return lines;
    for (const Bound& bound : m_series) {
        if (const std::optional<QPointF> sample = bound.data->sampleNear(fromAxis(*m_cursor)))
            lines << pointText(bound, *sample);
    }
    return lines;
}

void ChartCanvas::setValueText(std::function<QString(const QString&, const QPointF&)> text)
{
    m_valueText = std::move(text);
}

void ChartCanvas::setContextMenuHook(std::function<void(QMenu*, const QPointF&)> hook)
{
    m_menuHook = std::move(hook);
}

QString ChartCanvas::pointText(const Bound& bound, const QPointF& value) const
{
    const QString name = bound.look->name();
    if (m_valueText)
        return m_valueText(name, value);
    const QString& unit = m_units[int(bound.axis)];
    return name + QStringLiteral(": ") + TickLabels::value(value.x(), m_wallClock) +
           QStringLiteral(", ") + TickLabels::value(value.y(), false) +
           (unit.isEmpty() ? QString() : QLatin1Char(' ') + unit);
}

QPointF ChartCanvas::valueAt(const QPointF& position, YAxis axis) const
{
    const QRectF plot = chart()->plotArea();
    const QPointF at = chart()->mapFromScene(mapToScene(position.toPoint()));
    const Viewport& view = m_zoom.view();
    if (plot.width() <= 0 || plot.height() <= 0)
        return {view.x.min, view.y.min};
    const double y = view.y.max - (at.y() - plot.top()) / plot.height() * view.y.span();
    return {view.x.min + (at.x() - plot.left()) / plot.width() * view.x.span(),
            axis == YAxis::Right ? rightOf(y) : y};
}

QPointF ChartCanvas::plotPointOf(const QPointF& value) const
{
    const QRectF plot = chart()->plotArea();
    const Viewport& view = m_zoom.view();
    return {plot.left() + (value.x() - view.x.min) / view.x.span() * plot.width(),
            plot.top() + (view.y.max - value.y()) / view.y.span() * plot.height()};
}

QPointF ChartCanvas::positionOf(const QPointF& value, YAxis axis) const
{
    const QPointF left(value.x(), axis == YAxis::Right ? leftOf(value.y()) : value.y());
    return mapFromScene(chart()->mapToScene(plotPointOf(left)));
}

std::optional<PointHit> ChartCanvas::hoverAt(const QPointF& position)
{
    // Hits are measured in left axis values, where one pixel is one size for every series;
    // the text shows the point in its own axis' values.
    QList<QList<QPointF>> shown;
    for (const Bound& bound : std::as_const(m_series)) {
        QList<QPointF> points = bound.look->isVisible() ? bound.look->points() : QList<QPointF>();
        if (bound.axis == YAxis::Right)
            for (QPointF& point : points)
                point.setY(leftOf(point.y()));
        shown << points;
    }
    const QRectF plot = chart()->plotArea();
    const Viewport& view = m_zoom.view();
    m_hover = PointHit::nearest(shown, valueAt(position), plot.width() / view.x.span(),
                                plot.height() / view.y.span(), hoverRadius);
    if (m_hover) {
        const Bound& bound = m_series[m_hover->series];
        const QPointF shown = bound.look->at(m_hover->index);
        m_hoverText = pointText(bound, {fromAxis(shown.x()), shown.y()});
    } else {
        m_hoverText.clear();
    }
    viewport()->update();
    return m_hover;
}

void ChartCanvas::showView()
{
    const Viewport& view = m_zoom.view();
    if (!(view.x.span() > 0) || !(view.y.span() > 0))
        return;
    const QRectF plot = chart()->plotArea();
    m_x->setRange(view.x.min, view.x.max);
    m_y->setRange(view.y.min, view.y.max);
    if (m_logX) {
        for (const QString& label : m_x->categoriesLabels())
            m_x->remove(label);
        m_x->setStartValue(view.x.min);
        for (const double value :
             NiceTicks::decades(view.x, std::max(2, int(plot.width() / xTickPixels))).values) {
            const double real = fromAxis(value);
            m_x->append(m_xTickText ? m_xTickText(real) : TickLabels::value(real, false), value);
        }
    } else {
        fillTicks(m_x, view.x, m_wallClock, std::max(2, int(plot.width() / xTickPixels)));
    }
    fillTicks(m_y, view.y, false, std::max(2, int(plot.height() / yTickPixels)));
    if (m_rightUsed) {
        const AxisRange right = rightView();
        m_right->setRange(right.min, right.max);
        fillTicks(m_right, right, false, std::max(2, int(plot.height() / yTickPixels)));
    }
    m_filledColumns = static_cast<int>(plot.width());
    const int columns = std::max(1, m_filledColumns);
    for (const Bound& bound : std::as_const(m_series)) {
        QList<QPointF> points =
            bound.data->points(fromAxis(view.x.min), fromAxis(view.x.max), columns);
        if (m_logX) {
            QList<QPointF> onAxis;
            onAxis.reserve(points.size());
            for (const QPointF& p : points) {
                if (p.x() > 0)
                    onAxis.append({std::log10(p.x()), p.y()});
            }
            points = std::move(onAxis);
        }
        bound.look->replace(points);
    }
    m_hover.reset();
    m_hoverText.clear();
    viewport()->update();
}

void ChartCanvas::fillTicks(QCategoryAxis* axis, const AxisRange& range, bool wallClock,
                            int maxTicks)
{
    for (const QString& label : axis->categoriesLabels())
        axis->remove(label);
    axis->setStartValue(range.min);
    const AxisTicks ticks =
        wallClock ? NiceTicks::time(range, maxTicks) : NiceTicks::linear(range, maxTicks);
    for (const double value : ticks.values)
        axis->append(TickLabels::tick(ticks, value, range), value);
}

QRect ChartCanvas::bandFor(const QPoint& from, const QPoint& to) const
{
    const QRect plot = mapFromScene(chart()->mapToScene(chart()->plotArea()))
                           .boundingRect()
                           .adjusted(0, 0, -1, -1);
    QRect band = QRect(from, to).normalized();
    if (m_zoomAxes == ZoomAxes::Horizontal) {
        band.setTop(plot.top());
        band.setBottom(plot.bottom());
    } else if (m_zoomAxes == ZoomAxes::Vertical) {
        band.setLeft(plot.left());
        band.setRight(plot.right());
    }
    return band;
}

void ChartCanvas::drawForeground(QPainter* painter, const QRectF& rect)
{
    QChartView::drawForeground(painter, rect);
    const QRectF plot = chart()->plotArea();
    painter->save();
    const QFontMetrics metrics(painter->font());
    // A text box beside `anchor`, below and to the right, or flipped to the other side of
    // the anchor where the plot ends, so that it never covers what it describes.
    auto box = [&](const QPointF& anchor, const QStringList& lines) {
        constexpr double gap = 8;
        int width = 0;
        for (const QString& line : lines)
            width = std::max(width, metrics.horizontalAdvance(line));
        QRectF frame(anchor + QPointF(gap, gap),
                     QSizeF(width + 8, lines.size() * metrics.height() + 6));
        if (frame.right() > plot.right())
            frame.moveRight(anchor.x() - gap);
        if (frame.bottom() > plot.bottom())
            frame.moveBottom(anchor.y() - gap);
        painter->setPen(QColor(60, 60, 60));
        painter->setBrush(QColor(255, 255, 225, 235));
        painter->drawRect(frame);
        for (int i = 0; i < lines.size(); ++i)
            painter->drawText(QPointF(frame.left() + 4,
                                      frame.top() + 3 + metrics.ascent() + i * metrics.height()),
                              lines[i]);
    };
    const Viewport& view = m_zoom.view();
    // A dashed line across the plot at `x`; false when `x` is outside the view.
    auto vertical = [&](double x, const QColor& color) {
        if (x < view.x.min || x > view.x.max)
            return false;
        const double at = plotPointOf({x, view.y.max}).x();
        painter->setPen(QPen(color, 1, Qt::DashLine));
        painter->drawLine(QPointF(at, plot.top()), QPointF(at, plot.bottom()));
        return true;
    };
    for (const ChartMark& mark : std::as_const(m_marks)) {
        if (vertical(toAxis(mark.x), mark.color))
            painter->drawText(plotPointOf({toAxis(mark.x), view.y.max}) +
                                  QPointF(3, metrics.ascent() + 2),
                              mark.text);
    }
    // The read-out starts a line lower than the marks' texts, which it would cover.
    if (m_cursor && vertical(*m_cursor, QColor(180, 0, 0))) {
        const QStringList readout = cursorReadout();
        if (!readout.isEmpty())
            box(plotPointOf({*m_cursor, view.y.max}) + QPointF(0, metrics.height()), readout);
    }
    if (m_hover) {
        const QPointF at = plotPointOf(m_hover->point);
        painter->setPen(QPen(QColor(0, 0, 160), 1.5));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(at, 4, 4);
        box(at, {m_hoverText});
    }
    painter->restore();
}

void ChartCanvas::mousePressEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    const bool pan = event->button() == Qt::MiddleButton ||
                     (event->button() == Qt::LeftButton && event->modifiers() & Qt::ShiftModifier);
    if (pan) {
        m_panFrom = at;
    } else if (event->button() == Qt::LeftButton) {
        m_pressed = at;
        m_band->setGeometry(QRect(at, QSize()));
    } else {
        QChartView::mousePressEvent(event);
        return;
    }
    event->accept();
}

void ChartCanvas::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint now = event->position().toPoint();
    if (m_panFrom) {
        const QPointF moved = valueAt(*m_panFrom) - valueAt(now);
        m_panFrom = now;
        const bool onY = m_zoomAxes != ZoomAxes::Horizontal;
        userStep({ZoomStep::Kind::Slide, m_zoom.panned(moved.x(), onY ? moved.y() : 0)});
    } else if (m_pressed) {
        m_band->setGeometry(bandFor(*m_pressed, now));
        m_band->setVisible((now - *m_pressed).manhattanLength() > clickSlack);
    } else {
        hoverAt(event->position());
    }
    event->accept();
}

void ChartCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_panFrom) {
        m_panFrom.reset();
        event->accept();
        return;
    }
    if (!m_pressed || event->button() != Qt::LeftButton) {
        QChartView::mouseReleaseEvent(event);
        return;
    }
    const QPoint start = *m_pressed;
    const QPoint end = event->position().toPoint();
    m_pressed.reset();
    m_band->hide();
    event->accept();
    if ((end - start).manhattanLength() <= clickSlack) {
        const double x = fromAxis(valueAt(end).x());
        setCursorX(x);
        emit cursorMoved(x);
        return;
    }
    const QRect band = bandFor(start, end);
    const QPointF topLeft = valueAt(band.topLeft());
    const QPointF bottomRight = valueAt(band.bottomRight());
    Viewport view = m_zoom.view();
    if (m_zoomAxes != ZoomAxes::Vertical)
        view.x = {topLeft.x(), bottomRight.x()};
    if (m_zoomAxes != ZoomAxes::Horizontal)
        view.y = {bottomRight.y(), topLeft.y()};
    userStep({ZoomStep::Kind::Push, view});
}

void ChartCanvas::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0) {
        event->ignore();
        return;
    }
    const QPointF at = valueAt(event->position());
    const Viewport view =
        m_zoom.zoomedAbout(at.x(), at.y(), std::pow(wheelFactor, notches),
                           m_zoomAxes != ZoomAxes::Vertical, m_zoomAxes != ZoomAxes::Horizontal);
    userStep({ZoomStep::Kind::Slide, view});
    event->accept();
}

void ChartCanvas::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Backspace)
        userStep({ZoomStep::Kind::Undo, {}});
    else if (event->key() == Qt::Key_Home)
        userStep({ZoomStep::Kind::Reset, {}});
    else
        QChartView::keyPressEvent(event);
}

void ChartCanvas::contextMenuEvent(QContextMenuEvent* event)
{
    if (!m_menuHook)
        return;
    QMenu menu(this);
    const QPointF at = valueAt(event->pos());
    m_menuHook(&menu, {fromAxis(at.x()), at.y()});
    if (!menu.isEmpty())
        menu.exec(event->globalPos());
}

void ChartCanvas::resizeEvent(QResizeEvent* event)
{
    QChartView::resizeEvent(event);
    showView();
}

void ChartCanvas::leaveEvent(QEvent* event)
{
    m_hover.reset();
    m_hoverText.clear();
    viewport()->update();
    QChartView::leaveEvent(event);
}

} // namespace lorvane
