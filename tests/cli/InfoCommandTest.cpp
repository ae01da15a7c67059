// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MeterFileBuilder.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::MeterFileBuilder;
using lorvane::test::runProgram;

namespace {

QString buildMeter(const QTemporaryDir& dir, const QString& name)
{
    const QString path = dir.filePath(name);
    MeterFileBuilder file(path);
    file.device(3, QStringLiteral("Halyx 3"), QStringLiteral("Feeder 7"))
        .dataPoints({20617, 26005})
        .dayRow(QStringLiteral("AllHistoricalLogs"), QStringLiteral("2024-03-01 00:00:00"), 1, 96,
                QStringLiteral("2024-03-01 00:00:00"), QStringLiteral("2024-03-01 23:45:00"));
    file.close();
    return path;
}

} // namespace

TEST(CliInfo, ReportsWhatTheFileHolds)
{
    QTemporaryDir dir;
    const QString path = buildMeter(dir, QStringLiteral("Feeder7.DB"));

    const auto json = runProgram(QStringLiteral("lorvane-cli"),
                                 {QStringLiteral("info"), path, QStringLiteral("--json")});
    ASSERT_EQ(json.exitCode, 0) << json.err.toStdString();
    const QJsonObject info = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_DOUBLE_EQ(info.value(QStringLiteral("version")).toDouble(), 8.6);
    const QJsonObject device = info.value(QStringLiteral("device")).toObject();
    EXPECT_EQ(device.value(QStringLiteral("HardwareName")).toString(), QStringLiteral("Feeder 7"));
    EXPECT_EQ(device.value(QStringLiteral("DeviceTypeID")).toInt(), 3);
    const QJsonArray available = info.value(QStringLiteral("logAvailable")).toArray();
    ASSERT_EQ(available.size(), 14);
    EXPECT_TRUE(available.at(3).toObject().value(QStringLiteral("available")).toBool());
    EXPECT_TRUE(available.at(12).toObject().value(QStringLiteral("available")).toBool());
    EXPECT_FALSE(available.at(9).toObject().value(QStringLiteral("available")).toBool());
    const QJsonArray logs = info.value(QStringLiteral("logs")).toArray();
    ASSERT_EQ(logs.size(), 1);
    EXPECT_EQ(logs.at(0).toObject().value(QStringLiteral("text")).toString(),
              QStringLiteral("From 2024-03-01 00:00:00 to 2024-03-01 23:45:00"));

    const auto text = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info"), path});
    ASSERT_EQ(text.exitCode, 0);
    EXPECT_TRUE(text.out.contains(QStringLiteral("Feeder 7")));
    EXPECT_TRUE(text.out.contains(QStringLiteral("SnapShot Log")));
}

TEST(CliInfo, BadFilesGiveTheirMessageAndExitCode)
{
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("Gone.DB"));
    auto result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info"), missing});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.err.startsWith(QStringLiteral("lorvane-cli info: ") + missing +
                                      QStringLiteral(" has a length of zero or does not exist "
                                                     "at the specified location\n")))
        << result.err.toStdString();

    const QString text = dir.filePath(QStringLiteral("Readme.DB"));
    {
        QFile file(text);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("This is a text file, not a meter database.\n").repeated(100));
    }
    result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info"), text});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_TRUE(result.err.startsWith(QStringLiteral("lorvane-cli info: This database is "
                                                     "damaged.\nDatabase: ") +
                                      text))
        << result.err.toStdString();

    const QString whole = buildMeter(dir, QStringLiteral("Whole.DB"));
    QFile source(whole);
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    const QByteArray bytes = source.readAll();
    const QString truncated = dir.filePath(QStringLiteral("Cut.DB"));
    {
        QFile file(truncated);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.left(bytes.size() / 4));
    }
    result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info"), truncated});
    EXPECT_EQ(result.exitCode, 3) << result.err.toStdString();

    const QString empty = dir.filePath(QStringLiteral("NoDevice.DB"));
    MeterFileBuilder(empty).close();
    result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info"), empty});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_TRUE(result.err.startsWith(
        QStringLiteral("lorvane-cli info: This database is damaged. Table:  DeviceInformation\n"
                       "Database: NoDevice.DB\n  step: ")))
        << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("\n  file: ") + empty));

    result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info")});
    EXPECT_EQ(result.exitCode, 1);
    result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("frobnicate")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains(QStringLiteral("unknown command: frobnicate")));
}

TEST(CliInfo, ReadOnlyFileIsReadAndLeftUntouched)
{
    QTemporaryDir dir;
    const QString path = buildMeter(dir, QStringLiteral("Locked.DB"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();
    ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::ReadGroup));

    const auto result = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("info"), path});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(QStringLiteral("Locked.DB file attribute is read-only.")));
    EXPECT_TRUE(result.out.contains(QStringLiteral("Feeder 7")));

    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), before) << "reading must not change a meter file";
    QStringList leftovers = QDir(dir.path()).entryList({QStringLiteral("Locked.DB-*")});
    EXPECT_TRUE(leftovers.isEmpty()) << leftovers.join(QLatin1Char(',')).toStdString();
}
