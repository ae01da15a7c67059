// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli pq-histogram on simulated meters: every voltage event of the files' PQ tables in
// the range, binned once, the sums running to the event count; one and two meters, a range
// without events, a missing file.
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::SqliteDatabase;
using lorvane::test::ProcessResult;
using lorvane::test::runProgram;

namespace {

const QStringList& meters()
{
    static const QTemporaryDir dir;
    static const QStringList paths = [] {
        QStringList out;
        for (const char* seed : {"1", "2"}) {
            const QString path = dir.filePath(QStringLiteral("M%1.DB").arg(QLatin1String(seed)));
            const ProcessResult made = runProgram(
                QStringLiteral("lorvane-sim"),
                {QStringLiteral("--out"), path, QStringLiteral("--seed"), QString::fromLatin1(seed),
                 QStringLiteral("--days"), QStringLiteral("2"), QStringLiteral("--points"),
                 QStringLiteral("4"), QStringLiteral("--interval-minutes"), QStringLiteral("15")});
            EXPECT_EQ(made.exitCode, 0) << made.err.toStdString();
            out << path;
        }
        return out;
    }();
    return paths;
}

/// Voltage events (Van, Vbn, Vcn, Vab, Vbc, Vca) with a duration in the meter's PQ tables.
qint64 fileEvents(const QString& path)
{
    SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
    qint64 n = 0;
    for (const QString& table : db.tables()) {
        if (table.startsWith(QLatin1String("PQLog_")))
            n += db.scalar(QStringLiteral("SELECT count(*) FROM [%1] WHERE [Duration] > 0 AND "
                                          "[ChannelID] IN (0, 1, 2, 9, 10, 11)")
                               .arg(table))
                     .toLongLong();
    }
    return n;
}

ProcessResult histogram(const QStringList& files, const char* from, const char* to)
{
    QStringList arguments{QStringLiteral("pq-histogram")};
    for (const QString& file : files)
        arguments << QStringLiteral("--meter") << file;
    arguments << QStringLiteral("--from") << QString::fromLatin1(from) << QStringLiteral("--to")
              << QString::fromLatin1(to) << QStringLiteral("--json");
    return runProgram(QStringLiteral("lorvane-cli"), arguments);
}

} // namespace

TEST(PqHistogramCommand, CountsEveryVoltageEventOfOneOrTwoMetersOnce)
{
    struct Case
    {
        const char* name;
        QStringList files;
        const char* from;
        qint64 events; ///< -1: those of the files
    };
    const Case cases[] = {
        {"one meter", {meters()[0]}, "2024-03-04", -1},
        {"two meters", meters(), "2024-03-04", -1},
        {"a range before the logs", {meters()[0]}, "2020-01-01", 0},
    };
    for (const Case& c : cases) {
        const ProcessResult result =
            histogram(c.files, c.from, c.events == 0 ? "2020-01-02" : "2024-03-05");
        ASSERT_EQ(result.exitCode, 0) << c.name << result.err.toStdString();
        const QJsonObject out = QJsonDocument::fromJson(result.out.toUtf8()).object();
        qint64 expected = c.events;
        if (expected < 0) {
            expected = 0;
            for (const QString& file : c.files)
                expected += fileEvents(file);
            EXPECT_GT(expected, 0) << c.name;
        }
        const QJsonArray events = out.value(QStringLiteral("events")).toArray();
        EXPECT_EQ(events.size(), expected) << c.name;
        for (const QJsonValue& event : events)
            EXPECT_GT(event[QStringLiteral("durationSeconds")].toDouble(), 0) << c.name;
        const QJsonArray counts = out.value(QStringLiteral("counts")).toArray();
        ASSERT_EQ(counts.size(), 21) << c.name;
        qint64 binned = 0;
        for (const QJsonValue& row : counts) {
            ASSERT_EQ(row.toArray().size(), 23) << c.name;
            for (const QJsonValue& cell : row.toArray())
                binned += cell.toInteger();
        }
        EXPECT_EQ(binned, expected) << c.name;
        const QJsonArray sums = out.value(QStringLiteral("sums")).toArray();
        ASSERT_EQ(sums.size(), 21) << c.name;
        EXPECT_EQ(sums.last()[QStringLiteral("cumulative")].toInteger(), expected) << c.name;
        EXPECT_EQ(sums.last()[QStringLiteral("label")].toString(), QStringLiteral("> 200"));
        const QJsonValue percent = sums.last()[QStringLiteral("cumulativePercent")];
        if (expected == 0) {
            EXPECT_TRUE(percent.isNull()) << c.name;
        } else {
            EXPECT_DOUBLE_EQ(percent.toDouble(), 100.0) << c.name;
        }
    }
}

TEST(PqHistogramCommand, RefusesAMissingFileAndABadCall)
{
    EXPECT_EQ(histogram({QStringLiteral("/no/such/meter.DB")}, "2024-03-04", "2024-03-05").exitCode,
              2);
    const ProcessResult noRange =
        runProgram(QStringLiteral("lorvane-cli"),
                   {QStringLiteral("pq-histogram"), QStringLiteral("--meter"), meters()[0]});
    EXPECT_EQ(noRange.exitCode, 1);
    EXPECT_TRUE(noRange.err.contains(QStringLiteral("--from and --to")));
}
