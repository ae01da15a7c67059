// SPDX-License-Identifier: GPL-3.0-or-later
// The trend on the data engineers keep. Load: the loader against the raw statements over the
// same hour tables of a simulated meter (one-minute snapshots of 48 points), in the same run.
// Draw: the trend tab's first draw and its redraws after zooms and drags over 10 and 100
// million samples in memory, painted offscreen, with the memory each sample costs.
// Usage: TrendBench [days (30)] [millions for the draw (10,100; 0 none)].
// QT_QPA_PLATFORM=offscreen.
#include "BenchClock.h"
#include "MeterSimulator.h"
#include "graph/SeriesPyramid.h"
#include "platform/LoadProgress.h"
#include "platform/SqliteDatabase.h"
#include "store/LogKind.h"
#include "store/SchemaCatalog.h"
#include "store/WallClock.h"
#include "trend/TrendSession.h"
#include "trend/TrendTime.h"
#include "trend/ui/TrendPreviewCanvas.h"
#include "trend/ui/TrendTab.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>

using namespace lorvane;

namespace {

/// Bytes the sets hold: every column once however many sets share it (by its data), and the
/// level-of-detail nodes (a leaf for each 16 samples, then halves up to one; each node the
/// two indexes and two values of its extremes).
double heldBytes(const QList<GraphSet>& sets)
{
    QSet<const double*> seen;
    double bytes = 0;
    for (const GraphSet& set : sets) {
        for (const QVector<double>* column : {&set.times, &set.values}) {
            if (!seen.contains(column->constData()))
                bytes += double(column->capacity()) * sizeof(double);
            seen.insert(column->constData());
        }
        qint64 nodes =
            (set.size() + SeriesPyramid<double>::blockSize - 1) / SeriesPyramid<double>::blockSize;
        for (qint64 level = nodes; level > 1; level = (level + 1) / 2)
            bytes += double((level + 1) / 2) * (2 * sizeof(int) + 2 * sizeof(double));
        bytes += double(nodes) * (2 * sizeof(int) + 2 * sizeof(double));
    }
    return bytes;
}

/// Reads every row of the hour tables of the range, as the loader's statements do, and
/// nothing else: the floor any loader over these tables stands on.
double rawRead(const QString& path)
{
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    QString sql = QStringLiteral("SELECT [LogTablesIndex]");
    for (int h = 0; h < 24; ++h)
        sql += QStringLiteral(", [Hour_%1]").arg(h);
    SqlStatement days = db.prepare(sql + QStringLiteral(" FROM AllHistoricalLogs"));
    QList<std::pair<qint64, int>> hours;
    while (days.next())
        for (int h = 0; h < 24; ++h)
            if (days.integer(1 + h) != 0)
                hours.append({days.integer(0), h});
    double sum = 0;
    for (const auto& [t, h] : hours) {
        SqlStatement index =
            db.prepare(QStringLiteral("SELECT [Date/TimeIndex], [Date/Time], [ms] FROM ") +
                       SchemaCatalog::hourTimeIndexTable(LogKind::Snapshots, t, h));
        while (index.next())
            sum += double(index.integer(0)) + index.text(1).size() + index.real(2);
        SqlStatement values =
            db.prepare(QStringLiteral("SELECT [Value], [DataID], [Date/TimeIndex] FROM ") +
                       SchemaCatalog::hourValueTable(LogKind::Snapshots, t, h));
        while (values.next())
            sum += values.real(0) + double(values.integer(1)) + double(values.integer(2));
    }
    return sum;
}

/// `sets` sets sharing one time column of one-second steps, `total` samples in all.
TrendLoad synthetic(qint64 total, int sets)
{
    const qsizetype each = qsizetype(total / sets);
    QVector<double> times(each);
    for (qsizetype i = 0; i < each; ++i)
        times[i] = 1.7e12 + double(i) * 1000.0;
    TrendLoad load;
    for (int s = 0; s < sets; ++s) {
        GraphSet set;
        set.dataId = 20000 + s;
        set.times = times;
        set.values.resize(each);
        for (qsizetype i = 0; i < each; ++i)
            set.values[i] = 230 + s + 5 * std::sin(double(i) * 1e-4) + 0.5 * std::sin(double(i));
        set.values.squeeze(); // as the loader leaves its columns
        set.summarise();
        load.sets.append(set);
        load.samples += each;
    }
    return load;
}

void drawBench(qint64 total, int sets)
{
    TrendSession session;
    session.take(synthetic(total, sets));
    const double buildMs = bench::medianMs([&] { (void)session.series(0); }, 1);
    const double bytes = heldBytes(session.views().first().sets);
    std::printf("%lld samples in %d sets: %.1f bytes a sample (columns and level of detail)\n",
                static_cast<long long>(total), sets, bytes / double(total));
    std::printf("level of detail built in %.0f ms\n", buildMs);

    TrendTab tab;
    tab.resize(1600, 900);
    tab.show();
    QImage frame(1600, 900, QImage::Format_ARGB32_Premultiplied);
    auto paint = [&] {
        QPainter painter(&frame);
        tab.render(&painter);
    };
    const double first = bench::medianMs(
        [&] {
            tab.showView(session, 0);
            QApplication::processEvents();
            paint();
        },
        1);
    std::printf("first draw %.1f ms\n", first);
    const AxisRange span = session.dataSpan();
    std::vector<double> redraws;
    for (const double share : {0.5, 0.1, 0.01, 0.001, 0.0001}) {
        for (const double at : {0.1, 0.37, 0.8}) { // a zoom, then two drags of the window
            const double from = span.min + at * (1 - share) * span.span();
            redraws.push_back(bench::medianMs(
                [&] {
                    session.setViewportX({from, from + share * span.span()});
                    tab.showExtents(session.view());
                    paint();
                },
                1));
        }
    }
    std::sort(redraws.begin(), redraws.end());
    std::printf("%zu redraws after zooms and drags: median %.1f ms, slowest %.1f ms\n",
                redraws.size(), redraws.at(redraws.size() / 2), redraws.back());
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int days = argc > 1 ? std::atoi(argv[1]) : 30;
    QList<qint64> millions{10, 100};
    if (argc > 2)
        millions = {std::atoll(argv[2])};

    QTemporaryDir dir;
    sim::SimOptions options;
    options.out = dir.filePath(QStringLiteral("Year.DB"));
    options.days = days;
    options.intervalMinutes = 1;
    options.points = 48;
    const double writeMs = bench::medianMs([&] { sim::MeterSimulator(options).run(); }, 1);
    TrendRequest request;
    LogFileEntry meter;
    meter.dbPath = options.out;
    request.meters = {meter};
    {
        SqliteDatabase db(options.out, SqliteDatabase::Mode::ReadOnly);
        SqlStatement ids = db.prepare(QStringLiteral("SELECT DISTINCT [DataID] FROM HistLog_1_0"));
        while (ids.next())
            request.dataIds << qint32(ids.integer(0));
    }
    request.from = WallClock::at(options.start, QTime(0, 0));
    request.to = request.from.addDays(days);
    qint64 samples = 0;
    SilentProgress progress;
    std::printf("%d days of one-minute snapshots, %lld points, written in %.0f ms\n", days,
                static_cast<long long>(request.dataIds.size()), writeMs);
    const double ratio = bench::compare(
        "load against the raw statements",
        [&] { samples = TrendLoader::load(request, progress).samples; },
        [&] { (void)rawRead(options.out); }, 3);
    std::printf("%lld samples loaded\n", static_cast<long long>(samples));
    for (qint64 m : millions)
        for (int sets : {1, 48})
            if (m > 0)
                drawBench(m * 1'000'000, sets);
    return ratio > 0 ? 0 : 1;
}
