// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli status on simulated meters: one grid per file with what the simulator wrote, and
// a clear grid and a non-zero exit for a file that is not there or is no database.
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::SqliteDatabase;
using lorvane::test::runProgram;

namespace {

QString simulate(const QTemporaryDir& dir, const QString& name, int seed)
{
    const QString out = dir.filePath(name);
    const auto result = runProgram(
        QStringLiteral("lorvane-sim"),
        {QStringLiteral("--out"), out, QStringLiteral("--days"), QStringLiteral("2"),
         QStringLiteral("--interval-minutes"), QStringLiteral("15"), QStringLiteral("--points"),
         QStringLiteral("12"), QStringLiteral("--seed"), QString::number(seed)});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return out;
}

QString cell(const QJsonObject& grid, const QString& label, int column = 1)
{
    for (const QJsonValue& row : grid.value(QStringLiteral("rows")).toArray()) {
        if (row.toArray().at(0).toString() == label)
            return row.toArray().at(column).toString();
    }
    return QStringLiteral("<missing>");
}

} // namespace

TEST(CliStatus, OneGridPerFileWithTheSimulatedContents)
{
    QTemporaryDir dir;
    const QString a = simulate(dir, QStringLiteral("a.DB"), 1);
    const QString b = simulate(dir, QStringLiteral("b.DB"), 2);
    const auto result = runProgram(
        QStringLiteral("lorvane-cli"),
        {QStringLiteral("status"), a, b, QStringLiteral("--format"), QStringLiteral("json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QJsonArray grids = QJsonDocument::fromJson(result.out.toUtf8()).array();
    ASSERT_EQ(grids.size(), 2);
    const QJsonObject first = grids.at(0).toObject();
    EXPECT_EQ(first.value(QStringLiteral("caption")).toString(),
              QStringLiteral("Data File Information"));
    EXPECT_EQ(cell(first, QStringLiteral("Device #")), QStringLiteral("1"));
    EXPECT_EQ(cell(first, QStringLiteral("Device ID")), QStringLiteral("HX3-000001"));
    EXPECT_EQ(cell(grids.at(1).toObject(), QStringLiteral("Device ID")),
              QStringLiteral("HX3-000002"));
    EXPECT_EQ(cell(first, QStringLiteral("Database file version")), QStringLiteral("8.6"));
    // Two days of inputs: door and alarm each day, the breaker and the transfer switch.
    EXPECT_EQ(cell(first, QStringLiteral("Status Change (Inputs)"), 3), QStringLiteral("2"));
    EXPECT_EQ(cell(first, QStringLiteral("Status Change (Inputs)"), 4), QStringLiteral("6"));
    EXPECT_EQ(cell(first, QStringLiteral("Flicker"), 4), QStringLiteral("8"));

    // Faults: the hourly snapshot counts were labelled as logs, download dates printed raw,
    // the partial download block carried another name, and the profile was never shown.
    EXPECT_NE(cell(first, QStringLiteral("Snapshots, hour 6"), 4), QStringLiteral("<missing>"));
    EXPECT_EQ(cell(first, QStringLiteral("Snapshots, hour 6"), 4),
              QString::number(2 * 4)); // two days of four instants an hour
    EXPECT_FALSE(cell(first, QStringLiteral("First download")).contains(QLatin1Char('-')));
    EXPECT_EQ(cell(first, QStringLiteral("Partial Downloads")), QStringLiteral("Last Date/Time"));
    EXPECT_NE(cell(first, QStringLiteral("Profile")), QStringLiteral("N/A"));

    // Fault: one missing table blanked the whole view; now only its own rows say "N/A".
    {
        SqliteDatabase meter(b, SqliteDatabase::Mode::ReadWrite);
        meter.execute(QStringLiteral("DROP TABLE DataPoints"));
    }
    const auto partial = runProgram(
        QStringLiteral("lorvane-cli"),
        {QStringLiteral("status"), b, QStringLiteral("--format"), QStringLiteral("json")});
    const QJsonObject damaged =
        QJsonDocument::fromJson(partial.out.toUtf8()).array().at(0).toObject();
    EXPECT_EQ(cell(damaged, QStringLiteral("Number of data points")), QStringLiteral("N/A"));
    EXPECT_EQ(cell(damaged, QStringLiteral("Device ID")), QStringLiteral("HX3-000002"));
    EXPECT_EQ(runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("status")}).exitCode, 1);
}

TEST(CliStatus, AFileThatCannotBeReadGetsItsGridAndANonZeroExit)
{
    QTemporaryDir dir;
    const QString good = simulate(dir, QStringLiteral("good.DB"), 1);
    const QString text = dir.filePath(QStringLiteral("notes.DB"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("these are notes, not a database\n");
    file.close();
    // A file that was no database printed "Cannot display information." and exited 0.
    const struct
    {
        QString path;
        int exitCode;
        const char* message;
    } cases[] = {{dir.filePath(QStringLiteral("none.DB")), 2, "file not found: "},
                 {text, 3, "not a meter database or damaged: "}};
    for (const auto& c : cases) {
        const auto result =
            runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("status"), good, c.path});
        EXPECT_EQ(result.exitCode, c.exitCode) << c.message;
        EXPECT_EQ(result.out.count(QStringLiteral("Cannot display information.")), 1);
        EXPECT_TRUE(result.err.contains(QLatin1String(c.message) + c.path))
            << result.err.toStdString();
    }
}
