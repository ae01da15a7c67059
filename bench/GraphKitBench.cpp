// SPDX-License-Identifier: GPL-3.0-or-later
// Zoom and redraw of a 10-million-sample series through the graph kit (pyramid query, the
// decimated points into the chart canvas, the canvas painted offscreen) against a chart that
// holds every sample and is painted at the same zooms; and the pyramid's zoom query against
// the full scan of the same range. Run with QT_QPA_PLATFORM=offscreen.
#include "BenchClock.h"
#include "graph/SeriesPyramid.h"
#include "graph/ui/ChartCanvas.h"

#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QImage>
#include <QLineSeries>
#include <QPainter>
#include <QValueAxis>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numbers>

using namespace lorvane;

namespace {

constexpr int chartWidth = 1600;
constexpr int chartHeight = 500;

/// A 60 Hz wave at 1024 samples a cycle with harmonics and noise, 1 ms = 61.44 samples.
std::pair<QVector<float>, QVector<float>> capture(int count)
{
    QVector<float> x(count);
    QVector<float> y(count);
    const double step = 1000.0 / 60 / 1024;
    for (int i = 0; i < count; ++i) {
        const double t = 2 * std::numbers::pi * i / 1024;
        x[i] = static_cast<float>(i * step);
        y[i] =
            static_cast<float>(325 * std::sin(t) + 20 * std::sin(5 * t) + 3 * std::sin(i * 0.7311));
    }
    return {x, y};
}

/// The zooms of one session: the whole series, then ever deeper ranges at different places.
QList<std::pair<double, double>> zooms(double span)
{
    QList<std::pair<double, double>> out;
    for (const double fraction : {1.0, 0.5, 0.1, 0.01, 0.001, 0.0001}) {
        const double from = (1 - fraction) * 0.37 * span;
        out.append({from, from + fraction * span});
    }
    return out;
}

void paint(QWidget* widget, QImage& frame)
{
    QPainter painter(&frame);
    widget->render(&painter);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 10'000'000;
    const auto [x, y] = capture(count);
    const double span = x.last();
    const QList<std::pair<double, double>> session = zooms(span);
    QImage frame(chartWidth, chartHeight, QImage::Format_ARGB32_Premultiplied);

    std::shared_ptr<const SeriesPyramid<float>> pyramid;
    const double buildMs =
        bench::medianMs([&] { pyramid = std::make_shared<const SeriesPyramid<float>>(x, y); }, 3);
    std::printf("%d samples; pyramid of %d levels built in %.1f ms\n", count, pyramid->levels(),
                buildMs);

    ChartCanvas canvas;
    canvas.resize(chartWidth, chartHeight);
    canvas.addSeries(new QLineSeries, pyramid);
    canvas.fitToData();
    canvas.show();
    QApplication::processEvents();
    const Viewport bounds = canvas.zoom().bounds();
    int kitPoints = 0;
    auto kit = [&] {
        kitPoints = 0;
        for (const auto& [from, to] : session) {
            canvas.apply({ZoomStep::Kind::Push, {{from, to}, bounds.y}});
            kitPoints += canvas.pointsShown();
            paint(&canvas, frame);
        }
        canvas.apply({ZoomStep::Kind::Reset, {}});
    };

    // Every sample in the chart: the zoom only moves the axis, each paint maps all samples.
    QChartView whole;
    whole.resize(chartWidth, chartHeight);
    auto* wholeLine = new QLineSeries;
    QList<QPointF> all;
    all.reserve(count);
    for (int i = 0; i < count; ++i)
        all.append(QPointF(x[i], y[i]));
    whole.chart()->addSeries(wholeLine);
    const double fillMs = bench::medianMs([&] { wholeLine->replace(all); }, 1);
    whole.chart()->createDefaultAxes();
    auto* wholeX = qobject_cast<QValueAxis*>(whole.chart()->axes(Qt::Horizontal).first());
    whole.show();
    QApplication::processEvents();
    std::printf("every sample into the chart once: %.0f ms\n", fillMs);
    auto everySample = [&] {
        for (const auto& [from, to] : session) {
            wholeX->setRange(from, to);
            paint(&whole, frame);
        }
    };

    kit();
    std::printf("points drawn over the %lld zooms: kit %d, every sample %lld each\n",
                static_cast<long long>(session.size()), kitPoints, static_cast<long long>(count));
    const double redraw = bench::compare("6 zooms and redraws, 1600 px", kit, everySample, 1);

    // The query alone: the pyramid against the full scan of the same ranges.
    auto query = [&](bool fast) {
        for (const auto& [from, to] : session) {
            if (fast)
                pyramid->points(from, to, chartWidth);
            else
                SeriesDecimation::decimate(x, y, from, to, chartWidth);
        }
    };
    const double points = bench::compare(
        "6 zoom queries, 1600 columns", [&] { query(true); }, [&] { query(false); }, 9);
    return redraw > 0 && points > 0 ? 0 : 1;
}
