// SPDX-License-Identifier: GPL-3.0-or-later
// Responsiveness of the log grid window. (1) Reading every row of a one-million-row grid
// through its model, against a walk over the same cells in a plain vector. (2) A snapshot load
// of a benchmark-size meter on the window thread with a 10 ms timer running: the ticks served
// per second during the load against an idle event loop, the wait window's event pump being
// the progress watcher's `cancelRequested`.
#include "BenchClock.h"
#include "gridview/ui/GridTableModel.h"
#include "platform/LoadProgress.h"
#include "query/engine/QueryContext.h"
#include "query/views/snapshot/SnapshotView.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>
#include <QVector>
#include <cstdio>

using namespace lorvane;

namespace {

/// Serves window events at every step of the load, as the wait window does.
class PumpingProgress : public LoadProgress
{
public:
    void status(const QString&) override {}
    void serve() override { QCoreApplication::processEvents(); }
};

/// Ticks of a 10 ms timer per second while `work` runs.
double ticksPerSecond(const std::function<void()>& work)
{
    int ticks = 0;
    QTimer timer;
    timer.setInterval(10);
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start();
    QElapsedTimer clock;
    clock.start();
    work();
    const double seconds = clock.elapsed() / 1000.0;
    return seconds > 0 ? ticks / seconds : 0.0;
}

void modelWalk()
{
    constexpr int count = 1000000;
    GridTable table;
    table.columns = {QStringLiteral("Date/Time"), QStringLiteral("Value")};
    QVector<QStringList> plain;
    plain.reserve(count);
    table.rows.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QStringList row{QString::number(i), QString::number(i * 0.5, 'f', 2)};
        table.rows << row;
        plain << row;
    }
    GridTableModel model;
    model.setTable(std::move(table));
    qint64 sizeModel = 0;
    qint64 sizePlain = 0;
    bench::compare(
        "grid model data(), 1,000,000 rows",
        [&] {
            sizeModel = 0;
            for (int r = 0; r < count; ++r)
                sizeModel += model.data(model.index(r, 1)).toString().size();
        },
        [&] {
            sizePlain = 0;
            for (const QStringList& row : plain)
                sizePlain += row.at(1).size();
        },
        5);
    if (sizeModel != sizePlain)
        std::fprintf(stderr, "model and vector disagree\n");
}

void loadTicks(const QString& meter, const QString& templatePath)
{
    QTemporaryDir folder;
    auto scratch = TempQueryDatabase::create(templatePath, folder.path(), 1);
    PumpingProgress progress;
    QueryContext context;
    context.scratch = scratch.get();
    context.progress = &progress;
    LogFileEntry entry;
    entry.dbPath = meter;
    entry.deviceTypeId = 3;
    entry.used = true;
    context.files = {entry};
    for (qint64 id : {20617, 20621, 20625, 21017, 21021, 21025})
        context.dataIds << id;
    context.start = WallClock::at(QDate(2024, 3, 4), QTime(0, 0));
    context.end = WallClock::at(QDate(2024, 4, 2), QTime(23, 59, 59));
    context.tempLogRecSize = 50000;

    qint64 rows = 0;
    QElapsedTimer clock;
    clock.start();
    const double loading = ticksPerSecond([&] {
        SnapshotView view(context, LogKind::Snapshots);
        ViewResult page = view.load();
        rows = page.rowsRead;
        while (!page.allRead) {
            page = view.step(1);
            rows += page.rowsRead;
        }
    });
    const qint64 loadMs = clock.elapsed();
    const double idle = ticksPerSecond([loadMs] {
        QEventLoop loop;
        QTimer::singleShot(int(std::min<qint64>(loadMs, 3000)), &loop, &QEventLoop::quit);
        loop.exec();
    });
    std::printf("%-40s load %6lld ms (%lld rows)  ticks/s loading %6.1f  idle %6.1f  ratio "
                "%5.2f\n",
                "timer during a 30-day snapshot load", loadMs, rows, loading, idle,
                idle > 0 ? loading / idle : 0.0);
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: LogGridBench METER.DB TEMPLATE.DB\n");
        return 1;
    }
    modelWalk();
    loadTicks(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    return 0;
}
