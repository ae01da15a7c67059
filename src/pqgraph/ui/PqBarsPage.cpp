// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqBarsPage.h"

#include "graph/NiceTicks.h"
#include "pqgraph/PqGraphTexts.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

/// Floor units: one bin is 1 wide; the tallest bar is this high.
constexpr double barHeight = 12;
/// Degrees of turn or tilt per pixel dragged.
constexpr double degreesPerPixel = 0.4;

/// The view's projection: floor point (x along duration bins, y along magnitude bins, z up)
/// to the picture plane, and its depth (larger is farther).
struct Projection
{
    double cosTurn, sinTurn, cosTilt, sinTilt;
    double depth(double x, double y) const { return x * sinTurn + y * cosTurn; }
    QPointF at(double x, double y, double z) const
    {
        return {x * cosTurn - y * sinTurn, -z * cosTilt - depth(x, y) * sinTilt};
    }
};

/// A colour from blue (few) to red (many).
QColor heat(double share)
{
    return QColor::fromHsvF(0.66 * (1 - std::clamp(share, 0.0, 1.0)), 0.75, 0.95);
}

} // namespace

PqBarsPage::PqBarsPage(QWidget* parent) : PictureCanvas(parent)
{
    setMinimumSize(400, 300);
    setCursor(Qt::OpenHandCursor);
}

void PqBarsPage::setCounts(const PqCounts::Matrix& counts)
{
    m_counts = counts;
    update();
}

void PqBarsPage::setView(double turn, double tilt)
{
    m_turn = std::remainder(turn, 360.0);
    m_tilt = std::clamp(tilt, 5.0, 85.0);
    update();
}

void PqBarsPage::paintPicture(QPainter& painter, const QRectF& area)
{
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int nx = PqCounts::durationBins;
    constexpr int ny = PqCounts::magnitudeBins;
    qint64 highest = 0;
    for (const auto& row : m_counts)
        highest = std::max(highest, *std::max_element(row.cbegin(), row.cend()));
    // Counts are whole numbers: a tick step below 1 would label fractions of an event.
    AxisTicks ticks = NiceTicks::linear({0, double(std::max<qint64>(highest, 1))}, 5);
    if (ticks.step < 1) {
        ticks.values.clear();
        for (qint64 n = 0; n <= std::max<qint64>(highest, 1); ++n)
            ticks.values << double(n);
        ticks.decimals = 0;
    }
    const double top = std::max(ticks.values.isEmpty() ? 1.0 : ticks.values.last(),
                                double(std::max<qint64>(highest, 1)));
    const double rad = M_PI / 180;
    const Projection p{std::cos(m_turn * rad), std::sin(m_turn * rad), std::cos(m_tilt * rad),
                       std::sin(m_tilt * rad)};

    // Fit the floor and the tallest tick into the area below the title.
    QFont font = painter.font();
    const QFontMetricsF metrics(font);
    const QRectF plot = area.adjusted(metrics.height() * 9, metrics.height() * 4,
                                      -metrics.height() * 9, -metrics.height() * 6);
    QRectF box;
    for (const double x : {0.0, double(nx)})
        for (const double y : {0.0, double(ny)})
            for (const double z : {0.0, barHeight})
                box |= QRectF(p.at(x, y, z), QSizeF(1e-9, 1e-9));
    const double scale = std::min(plot.width() / box.width(), plot.height() / box.height());
    const QPointF shift = plot.center() - box.center() * scale;
    auto screen = [&](double x, double y, double z) { return p.at(x, y, z) * scale + shift; };

    // Floor and its grid.
    painter.setPen(QPen(QColor(170, 170, 170), 0.8));
    painter.setBrush(QColor(245, 245, 250));
    painter.drawPolygon(
        QPolygonF{screen(0, 0, 0), screen(nx, 0, 0), screen(nx, ny, 0), screen(0, ny, 0)});
    for (int x = 0; x <= nx; ++x)
        painter.drawLine(screen(x, 0, 0), screen(x, ny, 0));
    for (int y = 0; y <= ny; ++y)
        painter.drawLine(screen(0, y, 0), screen(nx, y, 0));

    // The counts axis stands at the floor corner farthest back, with its ticks.
    QPointF corner(0, 0);
    for (const QPointF c : {QPointF(nx, 0), QPointF(0, ny), QPointF(nx, ny)})
        if (p.depth(c.x(), c.y()) > p.depth(corner.x(), corner.y()))
            corner = c;
    // The two walls behind the bars carry a line at each count tick, so that a bar's height
    // can be read against them.
    const QPointF alongX(corner.x() == 0 ? nx : 0, corner.y());
    const QPointF alongY(corner.x(), corner.y() == 0 ? ny : 0);
    for (const QPointF& end : {alongX, alongY}) {
        painter.setPen(QPen(QColor(190, 190, 190), 0.8));
        painter.setBrush(QColor(250, 250, 252));
        painter.drawPolygon(QPolygonF{
            screen(corner.x(), corner.y(), 0), screen(end.x(), end.y(), 0),
            screen(end.x(), end.y(), barHeight), screen(corner.x(), corner.y(), barHeight)});
        for (const double value : ticks.values) {
            const double z = value / top * barHeight;
            painter.drawLine(screen(corner.x(), corner.y(), z), screen(end.x(), end.y(), z));
        }
    }
    painter.setPen(QPen(Qt::black, 1));
    painter.drawLine(screen(corner.x(), corner.y(), 0), screen(corner.x(), corner.y(), barHeight));
    for (const double value : ticks.values) {
        const QPointF at = screen(corner.x(), corner.y(), value / top * barHeight);
        painter.drawLine(at, at - QPointF(5, 0));
        painter.drawText(QRectF(at.x() - 60, at.y() - 10, 52, 20),
                         Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(value, 'f', ticks.decimals));
    }

    // Bars back to front, each one's faces back to front.
    struct Bar
    {
        int x, y;
        double depth;
    };
    QList<Bar> bars;
    for (int y = 0; y < ny; ++y)
        for (int x = 0; x < nx; ++x)
            if (m_counts[y][x] > 0)
                bars.append({x, y, p.depth(x + 0.5, y + 0.5)});
    std::sort(bars.begin(), bars.end(),
              [](const Bar& a, const Bar& b) { return a.depth > b.depth; });
    for (const Bar& bar : bars) {
        const double share = double(m_counts[bar.y][bar.x]) / top;
        const double h = share * barHeight;
        const double x0 = bar.x + 0.15, x1 = bar.x + 0.85, y0 = bar.y + 0.15, y1 = bar.y + 0.85;
        const QColor color = heat(share);
        struct Face
        {
            QPolygonF shape;
            double depth;
            QColor color;
        };
        QList<Face> faces{
            {{screen(x0, y0, 0), screen(x1, y0, 0), screen(x1, y0, h), screen(x0, y0, h)},
             p.depth((x0 + x1) / 2, y0),
             color.darker(120)},
            {{screen(x0, y1, 0), screen(x1, y1, 0), screen(x1, y1, h), screen(x0, y1, h)},
             p.depth((x0 + x1) / 2, y1),
             color.darker(120)},
            {{screen(x0, y0, 0), screen(x0, y1, 0), screen(x0, y1, h), screen(x0, y0, h)},
             p.depth(x0, (y0 + y1) / 2),
             color.darker(145)},
            {{screen(x1, y0, 0), screen(x1, y1, 0), screen(x1, y1, h), screen(x1, y0, h)},
             p.depth(x1, (y0 + y1) / 2),
             color.darker(145)}};
        std::sort(faces.begin(), faces.end(),
                  [](const Face& a, const Face& b) { return a.depth > b.depth; });
        faces.append({{screen(x0, y0, h), screen(x1, y0, h), screen(x1, y1, h), screen(x0, y1, h)},
                      0,
                      color});
        painter.setPen(QPen(color.darker(200), 0.6));
        for (const Face& face : faces) {
            painter.setBrush(face.color);
            painter.drawPolygon(face.shape);
        }
    }

    // Bin labels along the two front edges of the floor, and the titles.
    QFont small = font;
    small.setPointSizeF(font.pointSizeF() * 0.8);
    painter.setFont(small);
    painter.setPen(Qt::black);
    const double frontY = p.depth(0, 0) < p.depth(0, ny) ? 0 : ny;
    const double frontX = p.depth(0, 0) < p.depth(nx, 0) ? 0 : nx;
    const QStringList& durations = PqCounts::durationLabels();
    const QStringList& magnitudes = PqCounts::magnitudeLabels();
    const double outY = frontY == 0 ? -0.8 : ny + 0.8;
    const double outX = frontX == 0 ? -0.8 : nx + 0.8;
    for (int x = 0; x < nx; x += 2) {
        const QPointF at = screen(x + 0.5, outY, 0);
        painter.drawText(QRectF(at.x() - 50, at.y() - 8, 100, 16), Qt::AlignCenter,
                         durations.at(x).trimmed());
    }
    for (int y = 0; y < ny; y += 2) {
        const QPointF at = screen(outX, y + 0.5, 0);
        painter.drawText(QRectF(at.x() - 40, at.y() - 8, 80, 16), Qt::AlignCenter,
                         magnitudes.at(y));
    }
    painter.setFont(font);
    const QPointF durationTitle = screen(nx / 2.0, frontY == 0 ? -3 : ny + 3, 0);
    const QPointF magnitudeTitle = screen(frontX == 0 ? -6 : nx + 6, ny / 2.0, 0);
    const QPointF countsTitle = screen(corner.x(), corner.y(), barHeight);
    painter.drawText(QRectF(durationTitle.x() - 100, durationTitle.y() - 10, 200, 20),
                     Qt::AlignCenter, PqGraphTexts::durationAxisTitle());
    painter.drawText(QRectF(magnitudeTitle.x() - 100, magnitudeTitle.y() - 10, 200, 20),
                     Qt::AlignCenter, PqGraphTexts::voltageMagnitudeTitle());
    painter.drawText(QRectF(countsTitle.x() - 100, countsTitle.y() - 20, 200, 20), Qt::AlignCenter,
                     PqGraphTexts::countsTitle());
    QFont bold = font;
    bold.setBold(true);
    bold.setPointSizeF(font.pointSizeF() * 1.3);
    painter.setFont(bold);
    painter.drawText(QRectF(area.left(), area.top() + 4, area.width(), metrics.height() * 2),
                     Qt::AlignCenter, PqGraphTexts::title3d());
}

void PqBarsPage::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_dragFrom = event->position();
        setCursor(Qt::ClosedHandCursor);
    }
}

void PqBarsPage::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragFrom)
        return;
    const QPointF moved = event->position() - *m_dragFrom;
    m_dragFrom = event->position();
    setView(m_turn + moved.x() * degreesPerPixel, m_tilt + moved.y() * degreesPerPixel);
}

void PqBarsPage::mouseReleaseEvent(QMouseEvent*)
{
    m_dragFrom.reset();
    setCursor(Qt::OpenHandCursor);
}

} // namespace lorvane
