// SPDX-License-Identifier: GPL-3.0-or-later
// A week of one-minute snapshots of 20 points on two meters, read to the last page as the
// Snapshots view does (scratch copy hour by hour under the row budget, wide grid, paging),
// against the raw SQLite join over the same day and hour tables of the same files.
#include "BenchClock.h"
#include "platform/LoadProgress.h"
#include "query/engine/QueryContext.h"
#include "query/selection/MeterInventory.h"
#include "query/views/snapshot/SnapshotView.h"
#include "store/MeterDatabase.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <sqlite3.h>
#include <sys/resource.h>

using namespace lorvane;

namespace {

const QList<qint64> points{20617, 20621, 20625, 20629, 20633, 20637, 20641, 20645, 20649, 20653,
                           21017, 21021, 21025, 21029, 21033, 21203, 21204, 21205, 21206, 21207};

LogFileEntry entryFor(const QString& path, int index)
{
    MeterDatabase meter(path);
    const DeviceRecord record = MeterInventory::read(meter, index);
    LogFileEntry entry;
    entry.dbPath = path;
    entry.deviceTypeId = record.deviceTypeId;
    entry.hardwareName = record.hardwareName;
    entry.used = true;
    entry.deviceIndex = index;
    return entry;
}

/// Every (value, time) pair of the selected points, straight from the hour tables.
qint64 rawJoin(const QString& path)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(path.toLocal8Bit().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    QStringList ids;
    for (qint64 id : points)
        ids << QString::number(id);
    QList<QPair<qint64, int>> hours;
    sqlite3_stmt* days = nullptr;
    QByteArray hourColumns = "LogTablesIndex";
    for (int h = 0; h < 24; ++h)
        hourColumns += ", Hour_" + QByteArray::number(h);
    sqlite3_prepare_v2(db, "SELECT " + hourColumns + " FROM AllHistoricalLogs ORDER BY [Date/Time]",
                       -1, &days, nullptr);
    while (sqlite3_step(days) == SQLITE_ROW) {
        for (int h = 0; h < 24; ++h) {
            if (sqlite3_column_int(days, h + 1) != 0)
                hours.append({sqlite3_column_int64(days, 0), h});
        }
    }
    sqlite3_finalize(days);
    qint64 rows = 0;
    for (const auto& [n, h] : hours) {
        const QByteArray suffix = QByteArray::number(n) + '_' + QByteArray::number(h);
        const QByteArray sql =
            "SELECT H.DataID, H.Value, I.[Date/Time], I.ms, I.DTmode, I.TypeID, I.ProfileIndex "
            "FROM HistLogTimeIndex_" +
            suffix + " AS I JOIN HistLog_" + suffix +
            " AS H ON H.[Date/TimeIndex] = I.[Date/TimeIndex] WHERE H.DataID IN (" +
            ids.join(QLatin1Char(',')).toLatin1() + ") ORDER BY I.[Date/Time], I.ms";
        sqlite3_stmt* join = nullptr;
        sqlite3_prepare_v2(db, sql.constData(), -1, &join, nullptr);
        while (sqlite3_step(join) == SQLITE_ROW)
            ++rows;
        sqlite3_finalize(join);
    }
    sqlite3_close(db);
    return rows;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 5) {
        std::fprintf(stderr, "usage: SnapshotQueryBench METER1.DB METER2.DB TEMPLATE.DB "
                             "DICTIONARY.DB\n");
        return 1;
    }
    const QString meter1 = QString::fromLocal8Bit(argv[1]);
    const QString meter2 = QString::fromLocal8Bit(argv[2]);
    const QString templatePath = QString::fromLocal8Bit(argv[3]);
    SqliteDatabase dictionary(QString::fromLocal8Bit(argv[4]), SqliteDatabase::Mode::ReadOnly);

    QTemporaryDir scratchFolder;
    auto scratch = TempQueryDatabase::create(templatePath, scratchFolder.path(), 1);
    SilentProgress progress;
    QueryContext context;
    context.scratch = scratch.get();
    context.dictionary = &dictionary;
    context.progress = &progress;
    context.files = {entryFor(meter1, 0), entryFor(meter2, 1)};
    context.dataIds = points;
    context.start = WallClock::at(QDate(2024, 3, 4), QTime(0, 0, 0));
    context.end = WallClock::at(QDate(2024, 3, 10), QTime(23, 59, 59));
    context.tempLogRecSize = 50000;

    qint64 gridRows = 0;
    int pages = 0;
    qint64 rawRows = 0;
    const double ratio = bench::compare(
        "snapshots, 7 days x 20 points x 2 meters",
        [&] {
            SnapshotView view(context, LogKind::Snapshots);
            ViewResult page = view.load();
            gridRows = page.grids.isEmpty() ? 0 : page.grids.first().rows.size();
            pages = 1;
            while (!page.allRead) {
                page = view.step(1);
                gridRows += page.grids.isEmpty() ? 0 : page.grids.first().rows.size();
                ++pages;
            }
        },
        [&] { rawRows = rawJoin(meter1) + rawJoin(meter2); }, 3);
    const double seconds = bench::medianMs(
                               [&] {
                                   SnapshotView view(context, LogKind::Snapshots);
                                   ViewResult page = view.load();
                                   while (!page.allRead)
                                       page = view.step(1);
                               },
                               1) /
                           1000.0;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("values read %lld, grid lines %lld on %d pages, %.0f values per second, ratio "
                "%.2f, peak memory %ld MB\n",
                static_cast<long long>(rawRows), static_cast<long long>(gridRows), pages,
                static_cast<double>(rawRows) / seconds, ratio, usage.ru_maxrss / 1024);
    return 0;
}
