// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli query on meters that lorvane-sim writes: the grids it prints against the meter
// file read with plain SQL, in CSV and JSON, and the messages and exit codes of bad input.
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::SqliteDatabase;
using lorvane::SqlStatement;
using lorvane::test::ProcessResult;
using lorvane::test::runProgram;

namespace {

/// One standard meter of 2024-03-04 and 2024-03-05, written once for the whole program.
const QString& meterPath()
{
    static const QTemporaryDir dir;
    static const QString path = [] {
        const QString out = dir.filePath(QStringLiteral("Board.DB"));
        const ProcessResult result = runProgram(
            QStringLiteral("lorvane-sim"),
            {QStringLiteral("--out"), out, QStringLiteral("--start"), QStringLiteral("2024-03-04"),
             QStringLiteral("--days"), QStringLiteral("2"), QStringLiteral("--interval-minutes"),
             QStringLiteral("15"), QStringLiteral("--points"), QStringLiteral("12"),
             QStringLiteral("--hardware-name"), QStringLiteral("Test Board")});
        EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
        return out;
    }();
    return path;
}

ProcessResult query(const QStringList& arguments)
{
    return runProgram(QStringLiteral("lorvane-cli"),
                      QStringList{QStringLiteral("query")} + arguments);
}

QJsonArray jsonGrids(const ProcessResult& result)
{
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return QJsonDocument::fromJson(result.out.toUtf8()).array();
}

QStringList strings(const QJsonValue& value)
{
    QStringList out;
    for (const QJsonValue& cell : value.toArray())
        out << cell.toString();
    return out;
}

/// The value of `dataId` at instant `at` (day 1, so `LogTablesIndex` 1) as the grid prints
/// it in the default "0.00" pattern.
QString fileValue(const char* at, int hour, qint64 dataId)
{
    SqliteDatabase meter(meterPath(), SqliteDatabase::Mode::ReadOnly);
    const double value =
        meter
            .scalar(QStringLiteral("SELECT V.[Value] FROM [HistLogTimeIndex_1_%1] AS T JOIN "
                                   "[HistLog_1_%1] AS V ON V.[Date/TimeIndex] = T.[Date/TimeIndex] "
                                   "WHERE T.[Date/Time] = ? AND V.[DataID] = ?")
                        .arg(hour),
                    {QString::fromLatin1(at), dataId})
            .toDouble();
    return QString::number(value, 'f', 2);
}

/// Rows of all tables named `prefix`{n} of the meter file, `join` added to each count.
qint64 fileRows(const QString& prefix, const QString& join = QString())
{
    SqliteDatabase meter(meterPath(), SqliteDatabase::Mode::ReadOnly);
    QStringList tables;
    SqlStatement names = meter.prepare(
        QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name GLOB ?"));
    names.bindAll({prefix + QStringLiteral("[0-9]*")});
    while (names.next())
        tables << names.text(0);
    qint64 rows = 0;
    for (const QString& table : tables)
        rows += meter.scalar(QStringLiteral("SELECT count(*) FROM [%1] %2").arg(table, join))
                    .toLongLong();
    return rows;
}

const QStringList snapshotRange{QStringLiteral("--from"),   QStringLiteral("2024-03-04 06:00:00"),
                                QStringLiteral("--to"),     QStringLiteral("2024-03-04 07:59:59"),
                                QStringLiteral("--points"), QStringLiteral("20617,21017")};

} // namespace

TEST(QueryCommand, SnapshotsAsCsvHoldTheMetersValues)
{
    const ProcessResult result =
        query(QStringList{QStringLiteral("snapshots"), QStringLiteral("--meter"), meterPath()} +
              snapshotRange);
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QStringList lines = result.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    // Caption line, columns, two heading rows, eight instants (06:00 to 07:45).
    ASSERT_EQ(lines.size(), 4 + 8) << result.out.toStdString();
    EXPECT_TRUE(lines.at(0).startsWith(QStringLiteral("Show Snapshots,")))
        << lines.at(0).toStdString();
    EXPECT_EQ(lines.at(1),
              QStringLiteral("Date/Time,DTmode,Record Type,Profile Index,1_20617,1_21017"));
    EXPECT_EQ(lines.at(2), QStringLiteral("Device Index/Type/Data ID,,,,1/3/20617,1/3/21017"));
    const QStringList names = lines.at(3).split(QLatin1Char(','));
    ASSERT_EQ(names.size(), 6);
    EXPECT_TRUE(names.at(4).endsWith(QStringLiteral(" - Test Board"))) << lines.at(3).toStdString();
    EXPECT_TRUE(names.at(5).endsWith(QStringLiteral(" - Test Board"))) << lines.at(3).toStdString();
    const QStringList first = lines.at(4).split(QLatin1Char(','));
    ASSERT_EQ(first.size(), 6) << lines.at(4).toStdString();
    EXPECT_TRUE(first.at(0).contains(QStringLiteral("6:00:00"))) << first.at(0).toStdString();
    EXPECT_EQ(first.at(4), fileValue("2024-03-04 06:00:00", 6, 20617));
    EXPECT_EQ(first.at(5), fileValue("2024-03-04 06:00:00", 6, 21017));
}

TEST(QueryCommand, SnapshotsAsJsonNewestFirst)
{
    const QJsonArray grids = jsonGrids(query(
        QStringList{QStringLiteral("snapshots"), QStringLiteral("--meter"), meterPath(),
                    QStringLiteral("--format"), QStringLiteral("json"), QStringLiteral("--desc")} +
        snapshotRange));
    ASSERT_EQ(grids.size(), 1);
    const QJsonObject grid = grids.at(0).toObject();
    EXPECT_EQ(grid.value(QStringLiteral("caption")).toString(), QStringLiteral("Show Snapshots"));
    const QJsonArray headings = grid.value(QStringLiteral("headingRows")).toArray();
    ASSERT_EQ(headings.size(), 2);
    EXPECT_EQ(strings(headings.at(0)),
              (QStringList{QStringLiteral("Device Index/Type/Data ID"), QString(), QString(),
                           QString(), QStringLiteral("1/3/20617"), QStringLiteral("1/3/21017")}));
    EXPECT_TRUE(strings(headings.at(1)).at(4).endsWith(QStringLiteral(" - Test Board")));
    const QJsonArray rows = grid.value(QStringLiteral("rows")).toArray();
    ASSERT_EQ(rows.size(), 8);
    const QStringList newest = strings(rows.at(0));
    EXPECT_TRUE(newest.at(0).contains(QStringLiteral("7:45:00"))) << newest.at(0).toStdString();
    EXPECT_EQ(newest.at(4), fileValue("2024-03-04 07:45:00", 7, 20617));
    EXPECT_EQ(strings(rows.at(7)).at(4), fileValue("2024-03-04 06:00:00", 6, 20617));
}

TEST(QueryCommand, LimitsPqAndEventsShowEveryRecordOfTheMeter)
{
    const QStringList range{QStringLiteral("--meter"),  meterPath(),
                            QStringLiteral("--from"),   QStringLiteral("2024-03-04"),
                            QStringLiteral("--to"),     QStringLiteral("2024-03-05"),
                            QStringLiteral("--format"), QStringLiteral("json")};

    const QJsonArray limits = jsonGrids(query(QStringList{QStringLiteral("limits")} + range));
    ASSERT_EQ(limits.size(), 2);
    EXPECT_EQ(limits.at(0).toObject().value(QStringLiteral("caption")).toString(),
              QStringLiteral("Show Limits"));
    // Each limit record shows once per data item it is linked to.
    const qint64 expectedLimits =
        fileRows(QStringLiteral("LimitsLog_"),
                 QStringLiteral("AS L JOIN LimitsLogDataItem AS I ON L.LinkIndex = I.LinkIndex"));
    ASSERT_GT(expectedLimits, 0);
    EXPECT_EQ(limits.at(0).toObject().value(QStringLiteral("rows")).toArray().size(),
              expectedLimits);
    EXPECT_EQ(limits.at(1).toObject().value(QStringLiteral("caption")).toString(),
              QStringLiteral("Show Snapshots"));
    EXPECT_EQ(limits.at(1).toObject().value(QStringLiteral("rows")).toArray().size(),
              fileRows(QStringLiteral("HistLogTimeIndex_")));

    const QJsonArray pq = jsonGrids(query(QStringList{QStringLiteral("pq")} + range));
    ASSERT_FALSE(pq.isEmpty());
    EXPECT_EQ(pq.at(0).toObject().value(QStringLiteral("caption")).toString(),
              QStringLiteral("Show PQs"));
    SqliteDatabase meter(meterPath(), SqliteDatabase::Mode::ReadOnly);
    const qint64 expectedPq =
        meter.scalar(QStringLiteral("SELECT sum(Recs) FROM AllPQLogs")).toLongLong();
    ASSERT_GT(expectedPq, 0);
    EXPECT_EQ(pq.at(0).toObject().value(QStringLiteral("rows")).toArray().size(), expectedPq);

    const QJsonArray events = jsonGrids(query(QStringList{QStringLiteral("events")} + range));
    ASSERT_EQ(events.size(), 1);
    EXPECT_EQ(events.at(0).toObject().value(QStringLiteral("caption")).toString(),
              QStringLiteral("Show System Events"));
    const qint64 expectedEvents = fileRows(QStringLiteral("SystemEventLog_"));
    ASSERT_GT(expectedEvents, 0);
    EXPECT_EQ(events.at(0).toObject().value(QStringLiteral("rows")).toArray().size(),
              expectedEvents);
}

TEST(QueryCommand, BadInputIsRefusedWithItsMessageAndCode)
{
    const QStringList range{QStringLiteral("--from"), QStringLiteral("2024-03-04"),
                            QStringLiteral("--to"), QStringLiteral("2024-03-05")};

    const ProcessResult unknown = query(
        QStringList{QStringLiteral("sparkles"), QStringLiteral("--meter"), meterPath()} + range);
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_TRUE(unknown.err.startsWith(QStringLiteral(
        "lorvane-cli: unknown view: sparkles (views: snapshots, demand, limits, inputs, relays, "
        "flicker, waveform, pq, events, en50160)\n")))
        << unknown.err.toStdString();
    EXPECT_TRUE(unknown.out.isEmpty());

    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("Nowhere.DB"));
    const ProcessResult gone =
        query(QStringList{QStringLiteral("limits"), QStringLiteral("--meter"), missing} + range);
    EXPECT_EQ(gone.exitCode, 2);
    EXPECT_TRUE(gone.err.endsWith(QStringLiteral("file not found: ") + missing + QLatin1Char('\n')))
        << gone.err.toStdString();
    EXPECT_TRUE(gone.out.isEmpty());

    // The scratch template is named as the viewer names it, not reported as a missing meter.
    const QString noTemplate = dir.filePath(QStringLiteral("LorvaneTempQuery.DB"));
    const ProcessResult withoutTemplate =
        query(QStringList{QStringLiteral("limits"), QStringLiteral("--meter"), meterPath(),
                          QStringLiteral("--template"), noTemplate} +
              range);
    EXPECT_EQ(withoutTemplate.exitCode, 2);
    EXPECT_TRUE(withoutTemplate.err.startsWith(
        QStringLiteral("lorvane-cli query: The scratch template LorvaneTempQuery.DB is missing.\n"
                       "Template: ") +
        noTemplate))
        << withoutTemplate.err.toStdString();

    const ProcessResult badTime = query(
        {QStringLiteral("events"), QStringLiteral("--meter"), meterPath(), QStringLiteral("--from"),
         QStringLiteral("2024-13-40"), QStringLiteral("--to"), QStringLiteral("2024-03-05")});
    EXPECT_EQ(badTime.exitCode, 1);
    EXPECT_TRUE(badTime.err.startsWith(
        QStringLiteral("lorvane-cli: not a time (YYYY-MM-DD[ HH:MM:SS]): 2024-13-40\n")))
        << badTime.err.toStdString();
    EXPECT_TRUE(badTime.out.isEmpty());
}

TEST(QueryCommand, AMalformedStampIsADamagedFileNotACrash)
{
    // A stamp with a fraction in the time index made the query abort ("terminate called").
    QTemporaryDir dir;
    const QString damaged = dir.filePath(QStringLiteral("Damaged.DB"));
    ASSERT_TRUE(QFile::copy(meterPath(), damaged));
    SqliteDatabase(damaged, SqliteDatabase::Mode::ReadWrite)
        .execute(QStringLiteral("UPDATE [HistLogTimeIndex_1_0] SET [Date/Time] = "
                                "'2024-03-04 00:00:00.5' WHERE rowid = 1"));
    const ProcessResult result = query(
        {QStringLiteral("snapshots"), QStringLiteral("--meter"), damaged, QStringLiteral("--from"),
         QStringLiteral("2024-03-04"), QStringLiteral("--to"), QStringLiteral("2024-03-05")});
    EXPECT_EQ(result.exitCode, 4) << "no signal, the damaged-file code: "
                                  << result.err.toStdString();
    EXPECT_TRUE(result.err.startsWith(QStringLiteral(
        "lorvane-cli query: This database is damaged: the time stamp \"2024-03-04 00:00:00.5\"")))
        << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("\n  file: ") + damaged))
        << result.err.toStdString();
}

// Fault: the inputs, relays and demand items chosen for a meter were never handed to the
// loaders, so these views showed every item of their log.
TEST(QueryCommand, InputRelayAndDemandViewsReadOnlyTheChosenItems)
{
    struct Case
    {
        const char* view;
        const char* option;
        const char* chosen;
        /// The column whose every cell must be one of `allowed`; empty: the data columns of
        /// the grid must be `allowed`.
        const char* column;
        QStringList allowed;
    };
    const Case cases[] = {
        {"inputs",
         "--inputs",
         "0:1,0:3",
         "Input Index",
         {QStringLiteral("1"), QStringLiteral("3")}},
        {"relays", "--relays", "0:1", "Relay Index", {QStringLiteral("1")}},
        {"demand",
         "--demand",
         "26003,26201",
         "",
         {QStringLiteral("1_26003"), QStringLiteral("1_26201")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.view);
        const QJsonArray grids = jsonGrids(
            query({QString::fromLatin1(c.view), QStringLiteral("--meter"), meterPath(),
                   QStringLiteral("--from"), QStringLiteral("2024-03-04"), QStringLiteral("--to"),
                   QStringLiteral("2024-03-05"), QStringLiteral("--format"), QStringLiteral("json"),
                   QString::fromLatin1(c.option), QString::fromLatin1(c.chosen)}));
        ASSERT_FALSE(grids.isEmpty());
        const QJsonObject grid = grids.at(0).toObject();
        const QStringList columns = strings(grid.value(QStringLiteral("columns")));
        if (*c.column == '\0') {
            EXPECT_EQ(columns.mid(4), c.allowed);
            continue;
        }
        const qsizetype at = columns.indexOf(QString::fromLatin1(c.column));
        ASSERT_GE(at, 0);
        const QJsonArray rows = grid.value(QStringLiteral("rows")).toArray();
        ASSERT_FALSE(rows.isEmpty());
        for (const QJsonValue& row : rows)
            EXPECT_TRUE(c.allowed.contains(strings(row).value(at)))
                << strings(row).join(',').toStdString();
    }
}
