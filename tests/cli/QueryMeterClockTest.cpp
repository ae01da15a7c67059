// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli query on the two meter layouts and clocks that broke it: a split-log meter opened
// through its Device Master Log, and a meter read on a PC whose zone changes to or from summer
// time on the day the query covers.
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::SqliteDatabase;
using lorvane::SqlStatement;
using lorvane::test::ProcessResult;
using lorvane::test::runProgram;

namespace {

const QTemporaryDir& folder()
{
    static const QTemporaryDir dir;
    return dir;
}

/// A simulated meter of one day; `kind` "split" writes a folder with its `.dml`.
QString simulate(const QString& kind, const QString& name, const QString& day)
{
    const QString out = folder().filePath(name);
    const ProcessResult result = runProgram(
        QStringLiteral("lorvane-sim"),
        {QStringLiteral("--kind"), kind, QStringLiteral("--out"), out, QStringLiteral("--start"),
         day, QStringLiteral("--days"), QStringLiteral("1"), QStringLiteral("--interval-minutes"),
         QStringLiteral("5"), QStringLiteral("--points"), QStringLiteral("4")});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return kind == QLatin1String("split") ? QDir(out).filePath(name + QStringLiteral(".dml")) : out;
}

QJsonArray grids(const QStringList& arguments, const QStringList& environment = {})
{
    const ProcessResult result =
        runProgram(QStringLiteral("lorvane-cli"),
                   QStringList{QStringLiteral("query")} + arguments +
                       QStringList{QStringLiteral("--format"), QStringLiteral("json")},
                   environment);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return QJsonDocument::fromJson(result.out.toUtf8()).array();
}

qsizetype rowsOf(const QJsonArray& list, const QString& caption)
{
    for (const QJsonValue& grid : list) {
        if (grid.toObject().value(QStringLiteral("caption")).toString() == caption)
            return grid.toObject().value(QStringLiteral("rows")).toArray().size();
    }
    return -1;
}

/// The distinct snapshot instants (time, ms, mode, type, profile) of every database under
/// `dir` between two stored times: one grid line each.
qsizetype snapshotInstants(const QString& dir, const QString& from, const QString& to)
{
    QSet<QString> instants;
    QDirIterator files(dir, {QStringLiteral("*.db"), QStringLiteral("*.DB")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        SqliteDatabase db(files.next(), SqliteDatabase::Mode::ReadOnly);
        SqlStatement tables = db.prepare(
            QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name GLOB "
                           "'HistLogTimeIndex_*'"));
        QStringList names;
        while (tables.next())
            names << tables.text(0);
        for (const QString& table : names) {
            SqlStatement rows =
                db.prepare(QStringLiteral("SELECT [Date/Time], ms, DTmode, TypeID FROM [%1] WHERE "
                                          "[Date/Time] BETWEEN ? AND ?")
                               .arg(table));
            rows.bindAll({from, to});
            while (rows.next())
                instants.insert(rows.text(0) + rows.text(1) + rows.text(2) + rows.text(3));
        }
    }
    return instants.size();
}

} // namespace

// Fault: the snapshot view and the snapshot of the moment beside the limit, input, relay and
// flicker logs read the split-log meter's SYSTEM_EVENT database and found nothing, because they
// were handed the files before their expansion into the meter's logs.
TEST(QueryMeterClock, SplitLogMeterShowsEveryLogThroughItsMasterLog)
{
    const QString dml =
        simulate(QStringLiteral("split"), QStringLiteral("Feeder"), QStringLiteral("2024-03-04"));
    const QString logs = QFileInfo(dml).absolutePath();
    const qsizetype instants = snapshotInstants(logs, QStringLiteral("2024-03-04 06:00:00"),
                                                QStringLiteral("2024-03-04 07:59:59"));
    ASSERT_GT(instants, 0);
    const QStringList range{QStringLiteral("--meter"), dml,
                            QStringLiteral("--from"),  QStringLiteral("2024-03-04 06:00:00"),
                            QStringLiteral("--to"),    QStringLiteral("2024-03-04 07:59:59")};
    struct Case
    {
        const char* view;
        const char* logCaption;
        bool momentSnapshot;
    };
    const Case cases[] = {
        {"snapshots", "Show Snapshots", false},    {"limits", "Show Limits", true},
        {"inputs", "Show Inputs", true},           {"relays", "Show Relays", true},
        {"flicker", "Show Flicker Max/Min", true}, {"pq", "Show PQs", false},
        {"events", "Show System Events", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.view);
        const QJsonArray list = grids(QStringList{QString::fromLatin1(c.view)} + range);
        EXPECT_GE(rowsOf(list, QString::fromLatin1(c.logCaption)), 0);
        if (c.momentSnapshot || QLatin1String(c.view) == QLatin1String("snapshots")) {
            EXPECT_EQ(rowsOf(list, QStringLiteral("Show Snapshots")), instants);
        }
    }
}

// Fault: hour and day bounds were built in the PC's zone, so on a PC with summer time the
// spring-forward gap (02:00 to 02:59 in Berlin on 2024-03-31) deleted the meter's records of
// that hour, and "the last N hours" across the autumn change counted real hours, not the
// meter's wall-clock hours.
TEST(QueryMeterClock, SummerTimeOfThePcChangesNoMeterReading)
{
    const QStringList berlin{QStringLiteral("TZ=Europe/Berlin")};
    const QString spring = simulate(QStringLiteral("standard"), QStringLiteral("Spring.DB"),
                                    QStringLiteral("2024-03-31"));
    const QJsonArray forward =
        grids({QStringLiteral("snapshots"), QStringLiteral("--meter"), spring,
               QStringLiteral("--from"), QStringLiteral("2024-03-31 01:50:00"),
               QStringLiteral("--to"), QStringLiteral("2024-03-31 03:10:00")},
              berlin);
    // 01:50 to 03:10 every five minutes.
    EXPECT_EQ(rowsOf(forward, QStringLiteral("Show Snapshots")), 17);

    const QString autumn = simulate(QStringLiteral("standard"), QStringLiteral("Autumn.DB"),
                                    QStringLiteral("2024-10-27"));
    // From the end of the day (midnight) 23 wall-clock hours back to 01:00, before the doubled
    // hour: counted in the PC's zone, the start fell on 02:00 instead.
    const QStringList lastHours{
        QStringLiteral("snapshots"), QStringLiteral("--meter"), autumn,
        QStringLiteral("--last"),    QStringLiteral("23"),      QStringLiteral("hours")};
    const qsizetype inUtc =
        rowsOf(grids(lastHours, {QStringLiteral("TZ=UTC")}), QStringLiteral("Show Snapshots"));
    EXPECT_GT(inUtc, 12 * 20);
    EXPECT_EQ(rowsOf(grids(lastHours, berlin), QStringLiteral("Show Snapshots")), inUtc);
}
