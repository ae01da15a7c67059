// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveStripChart.h"

#include "graph/SeriesDecimation.h"
#include "graph/ui/RoundValueTicks.h"

#include <QCursor>
#include <QFont>
#include <QLineSeries>
#include <QMouseEvent>
#include <QRubberBand>
#include <QScatterSeries>
#include <QToolTip>
#include <QValueAxis>
#include <algorithm>
#include <limits>

namespace lorvane {

namespace {

/// Pixels a press may move and still count as a click.
constexpr int clickSlack = 4;

} // namespace

WaveStripChart::WaveStripChart(QWidget* parent) : QChartView(parent)
{
    auto* chart = new QChart;
    chart->legend()->setAlignment(Qt::AlignRight);
    chart->setMargins(QMargins(4, 4, 4, 4));
    m_x = new QValueAxis;
    m_y = new QValueAxis;
    // Many strips share the window's height: small fonts keep the axis labels readable.
    QFont small = m_x->labelsFont();
    small.setPointSizeF(7.5);
    for (QValueAxis* axis : {m_x, m_y}) {
        axis->setLabelsFont(small);
        axis->setTitleFont(small);
    }
    RoundValueTicks::follow(m_x, 8);
    RoundValueTicks::follow(m_y, 6);
    chart->setTitleFont(small);
    chart->legend()->setFont(small);
    chart->addAxis(m_x, Qt::AlignBottom);
    chart->addAxis(m_y, Qt::AlignLeft);
    setChart(chart);
    setRenderHint(QPainter::Antialiasing);
    setMinimumHeight(200);
    m_band = new QRubberBand(QRubberBand::Rectangle, this);
}

void WaveStripChart::clearCurves()
{
    for (const Curve& curve : std::as_const(m_curves)) {
        chart()->removeSeries(curve.series);
        delete curve.series;
    }
    m_curves.clear();
}

void WaveStripChart::addCurve(const QString& name, const QVector<float>* time,
                              const QVector<float>* values, const QColor& color, Qt::PenStyle style,
                              qreal width, bool line, qreal pointSize, const QImage& marker)
{
    QXYSeries* series = nullptr;
    if (line) {
        auto* lineSeries = new QLineSeries;
        lineSeries->setPen(QPen(color, width, style));
        lineSeries->setPointsVisible(pointSize > 0);
        if (pointSize > 0)
            lineSeries->setMarkerSize(pointSize);
        series = lineSeries;
    } else {
        auto* scatter = new QScatterSeries;
        scatter->setMarkerSize(std::max<qreal>(pointSize, 3));
        scatter->setColor(color);
        scatter->setBorderColor(color);
        series = scatter;
    }
    if (!marker.isNull() && pointSize > 0) {
        series->setLightMarker(marker);
        series->setMarkerSize(pointSize);
    }
    series->setName(name);
    connect(series, &QXYSeries::hovered, this, [this](const QPointF& point, bool state) {
        if (state && m_hoverText)
            QToolTip::showText(QCursor::pos(), m_hoverText(point.x()), this);
        else
            QToolTip::hideText();
    });
    chart()->addSeries(series);
    series->attachAxis(m_x);
    series->attachAxis(m_y);
    m_curves.append({series, time, values});
    // A strip of one curve names it in its title already.
    chart()->legend()->setVisible(m_curves.size() > 1);
    if (!time->isEmpty() && m_curves.size() == 1)
        m_x->setRange(time->first(), time->last());
    refill();
    if (!m_manualY)
        fitY();
}

void WaveStripChart::setTitles(const QString& title, const QString& xTitle, const QString& yTitle)
{
    chart()->setTitle(title);
    m_x->setTitleText(xTitle);
    m_y->setTitleText(yTitle);
}

void WaveStripChart::setXRange(double xMin, double xMax)
{
    if (xMax <= xMin)
        return;
    m_x->setRange(xMin, xMax);
    refill();
    if (!m_manualY)
        fitY();
}

double WaveStripChart::xMin() const
{
    return m_x->min();
}

double WaveStripChart::xMax() const
{
    return m_x->max();
}

double WaveStripChart::yMin() const
{
    return m_y->min();
}

double WaveStripChart::yMax() const
{
    return m_y->max();
}

void WaveStripChart::setManualY(double bottom, double top)
{
    if (top <= bottom)
        return;
    m_manualY = true;
    m_y->setRange(bottom, top);
}

void WaveStripChart::setAutomaticY()
{
    m_manualY = false;
    fitY();
}

void WaveStripChart::setColors(const QColor& foreground, const QColor& background)
{
    m_foreground = foreground;
    m_background = background;
    chart()->setBackgroundBrush(background);
    chart()->setTitleBrush(foreground);
    for (QValueAxis* axis : {m_x, m_y}) {
        axis->setLabelsColor(foreground);
        axis->setTitleBrush(foreground);
        axis->setLinePenColor(foreground);
    }
    chart()->legend()->setLabelColor(foreground);
    viewport()->update();
}

void WaveStripChart::reverseColors()
{
    setColors(m_background.isValid() ? m_background : Qt::white,
              m_foreground.isValid() ? m_foreground : Qt::black);
}

void WaveStripChart::setAnnotations(const QList<WaveMarks::Annotation>& annotations)
{
    m_annotations = annotations;
    viewport()->update();
}

void WaveStripChart::setTextBlock(const QString& text)
{
    m_textBlock = text;
    viewport()->update();
}

int WaveStripChart::pointsShown() const
{
    int count = 0;
    for (const Curve& curve : m_curves)
        count += static_cast<int>(curve.series->count());
    return count;
}

double WaveStripChart::xAt(const QPoint& position) const
{
    return chart()->mapToValue(mapToScene(position)).x();
}

void WaveStripChart::refill()
{
    const int columns = std::max(1, static_cast<int>(chart()->plotArea().width()));
    for (const Curve& curve : std::as_const(m_curves)) {
        curve.series->replace(SeriesDecimation::decimate(*curve.time, *curve.values, m_x->min(),
                                                         m_x->max(), columns));
    }
}

void WaveStripChart::fitY()
{
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    for (const Curve& curve : std::as_const(m_curves)) {
        for (const QPointF& p : curve.series->points()) {
            low = std::min(low, p.y());
            high = std::max(high, p.y());
        }
    }
    if (low > high) {
        low = -1;
        high = 1;
    }
    const double margin = high > low ? (high - low) / 10 : std::max(1.0, std::abs(high) / 10);
    m_y->setRange(low - margin, high + margin);
}

void WaveStripChart::drawForeground(QPainter* painter, const QRectF& rect)
{
    QChartView::drawForeground(painter, rect);
    const QRectF plot = chart()->plotArea();
    painter->save();
    const QColor ink = m_foreground.isValid() ? m_foreground : QColor(Qt::black);
    painter->setPen(QPen(ink, 1, Qt::DashLine));
    const QFontMetrics metrics(painter->font());
    m_textBoxes.clear();
    // A text that would cover one drawn before (the duration between the marks running into
    // their ">>") moves down a line until it is clear.
    const auto place = [&](QPointF baseline, const QString& text) {
        QRectF box(baseline.x(), baseline.y() - metrics.ascent(), metrics.horizontalAdvance(text),
                   metrics.height());
        const auto covers = [&box](const QRectF& other) { return other.intersects(box); };
        while (std::any_of(m_textBoxes.cbegin(), m_textBoxes.cend(), covers) &&
               box.bottom() + metrics.height() < plot.bottom())
            box.translate(0, metrics.height());
        m_textBoxes << box;
        painter->drawText(QPointF(box.left(), box.top() + metrics.ascent()), text);
    };
    for (const WaveMarks::Annotation& a : std::as_const(m_annotations)) {
        const QPointF at = chart()->mapToPosition(QPointF(a.x, m_y->max()));
        if (at.x() < plot.left() - 1 || at.x() > plot.right() + 1)
            continue;
        const int width = metrics.horizontalAdvance(a.text);
        switch (a.placement.unicode()) {
        case 'H':
        case 'h': {
            painter->setPen(QPen(a.placement == u'h' ? QColor(Qt::red) : ink, 1, Qt::DashLine));
            painter->drawLine(QPointF(at.x(), plot.top()), QPointF(at.x(), plot.bottom()));
            place(QPointF(at.x() + 2, plot.top() + metrics.ascent()), a.text);
            painter->setPen(QPen(ink, 1, Qt::DashLine));
            break;
        }
        case 'r':
            place(QPointF(at.x() - width, plot.center().y()), a.text);
            break;
        case 't':
        case 'b': {
            const double y = a.placement == u't' ? plot.top() + 2 * metrics.height()
                                                 : plot.bottom() - metrics.descent();
            place(QPointF(at.x() + 2, y), a.text);
            break;
        }
        default:
            place(QPointF(at.x(), plot.center().y()), a.text);
            break;
        }
    }
    if (!m_textBlock.isEmpty()) {
        const QStringList lines = m_textBlock.split(u'\n');
        int width = 0;
        for (const QString& line : lines)
            width = std::max(width, metrics.horizontalAdvance(line));
        const QRectF box(plot.right() - width - 12, plot.top() + 4, width + 8,
                         lines.size() * metrics.height() + 6);
        painter->setPen(ink);
        painter->setBrush(QColor(255, 255, 230, 230));
        painter->drawRect(box);
        for (int i = 0; i < lines.size(); ++i) {
            painter->drawText(
                QPointF(box.left() + 4, box.top() + 3 + metrics.ascent() + i * metrics.height()),
                lines.at(i));
        }
    }
    painter->restore();
}

void WaveStripChart::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = event->position().toPoint();
        m_band->setGeometry(QRect(*m_pressed, QSize()));
        event->accept();
        return;
    }
    if (event->button() == Qt::RightButton) {
        emit menuRequested(xAt(event->position().toPoint()), event->globalPosition().toPoint());
        event->accept();
        return;
    }
    QChartView::mousePressEvent(event);
}

void WaveStripChart::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed) {
        QChartView::mouseMoveEvent(event);
        return;
    }
    const QPoint now = event->position().toPoint();
    const QRectF plot = chart()->plotArea();
    QRect band = QRect(*m_pressed, now).normalized();
    if (m_zoomMode == ZoomMode::Horizontal) {
        band.setTop(static_cast<int>(plot.top()));
        band.setBottom(static_cast<int>(plot.bottom()));
    } else if (m_zoomMode == ZoomMode::Vertical) {
        band.setLeft(static_cast<int>(plot.left()));
        band.setRight(static_cast<int>(plot.right()));
    }
    m_band->setGeometry(band);
    m_band->setVisible((now - *m_pressed).manhattanLength() > clickSlack);
}

void WaveStripChart::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_pressed || event->button() != Qt::LeftButton) {
        QChartView::mouseReleaseEvent(event);
        return;
    }
    const QPoint start = *m_pressed;
    const QPoint end = event->position().toPoint();
    m_pressed.reset();
    m_band->hide();
    if ((end - start).manhattanLength() <= clickSlack) {
        emit clicked(xAt(end));
        return;
    }
    const QPointF a = chart()->mapToValue(mapToScene(start));
    const QPointF b = chart()->mapToValue(mapToScene(end));
    const bool horizontal = m_zoomMode != ZoomMode::Vertical;
    const bool vertical = m_zoomMode != ZoomMode::Horizontal;
    emit zoomRequested(
        horizontal ? std::min(a.x(), b.x()) : xMin(), horizontal ? std::max(a.x(), b.x()) : xMax(),
        vertical ? std::min(a.y(), b.y()) : yMin(), vertical ? std::max(a.y(), b.y()) : yMax());
}

void WaveStripChart::resizeEvent(QResizeEvent* event)
{
    QChartView::resizeEvent(event);
    refill();
}

} // namespace lorvane
