// SPDX-License-Identifier: GPL-3.0-or-later
// 100 000 power quality events of a query's PQ table: read per voltage channel, binned into the
// count matrix and sums (PqGraphSession::load), and drawn on the 2D page painted offscreen,
// against the plain query that reads the same rows in start order. Run with
// QT_QPA_PLATFORM=offscreen.
#include "BenchClock.h"
#include "platform/SqliteDatabase.h"
#include "pqgraph/PqGraphSession.h"
#include "pqgraph/ui/PqScatterPage.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>

using namespace lorvane;

namespace {

constexpr int eventCount = 100000;

/// A query's tables with `eventCount` events: the six voltage channels and, one row in ten,
/// Vaux or a current, durations spread evenly over the decades from 0.1 ms to 100 s.
void fill(SqliteDatabase& db)
{
    db.executeScript(QStringLiteral(
        "CREATE TABLE LogDevices_1 (DeviceIndex INTEGER, DeviceTypeID INTEGER, DBPath TEXT, "
        "HardwareName TEXT);"
        "INSERT INTO LogDevices_1 VALUES (0, 3, 'bench.DB', 'Bench Meter');"
        "CREATE TABLE PQLog_1_1 ([StartDate/Time] TEXT, [Startms] REAL, [Duration] REAL, "
        "[ChannelID] INTEGER, [PQ%] REAL, [DeviceIndex] INTEGER, [RecCounter] INTEGER, "
        "[ConditionName] TEXT, [PQValue] REAL);"));
    const int channels[] = {0, 1, 2, 9, 10, 11, 0, 1, 2, 3, 5};
    QRandomGenerator random(7);
    db.beginTransaction();
    SqlStatement insert =
        db.prepare(QStringLiteral("INSERT INTO PQLog_1_1 VALUES (?, ?, ?, ?, ?, 0, ?, 'SAG', 0)"));
    for (int i = 0; i < eventCount; ++i) {
        const qint64 second = qint64(i) * 31;
        const QString stamp = QStringLiteral("2024-%1-%2 %3:%4:%5")
                                  .arg(1 + second / (28 * 86400) % 12, 2, 10, QLatin1Char('0'))
                                  .arg(1 + second / 86400 % 28, 2, 10, QLatin1Char('0'))
                                  .arg(second / 3600 % 24, 2, 10, QLatin1Char('0'))
                                  .arg(second / 60 % 60, 2, 10, QLatin1Char('0'))
                                  .arg(second % 60, 2, 10, QLatin1Char('0'));
        insert.reset();
        insert.bindAll({stamp, random.bounded(1000.0),
                        std::pow(10.0, -1 + random.bounded(6.0)) /* ms */,
                        channels[random.bounded(int(std::size(channels)))], random.bounded(220.0),
                        qint64(i + 1)});
        insert.run();
    }
    db.commit();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QTemporaryDir dir;
    SqliteDatabase db(dir.filePath(QStringLiteral("bench.TempQuery")),
                      SqliteDatabase::Mode::Create);
    fill(db);
    const QueryNumbers numbers{1, 1};

    qint64 plainRows = 0;
    const auto plainQuery = [&] {
        plainRows = 0;
        SqlStatement all = db.prepare(
            QStringLiteral("SELECT * FROM PQLog_1_1 ORDER BY [StartDate/Time] ASC, [Startms] ASC"));
        while (all.next())
            plainRows += all.integer(6) > 0;
    };
    PqGraphSession session;
    bench::compare(
        "read and bin 100 000 events", [&] { session.load(db, numbers, nullptr); }, plainQuery, 5);
    std::printf("events of the graph %lld of %lld rows\n",
                static_cast<long long>(PqEvents::count(session.events())),
                static_cast<long long>(plainRows));

    PqScatterPage page(session);
    page.resize(1100, 700);
    QImage frame(page.size(), QImage::Format_ARGB32);
    const auto readBinDraw = [&] {
        session.load(db, numbers, nullptr);
        session.chooseEnvelope(true, {});
        page.redraw();
        QPainter painter(&frame);
        page.render(&painter);
    };
    bench::compare("read, bin and draw the 2D page", readBinDraw, plainQuery, 3);
    return 0;
}
