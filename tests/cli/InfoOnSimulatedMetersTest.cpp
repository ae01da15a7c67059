// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli info on every kind of meter that lorvane-sim writes reports what the simulator
// put in: device type, the logs each kind holds, and spans that match the simulated period.
#include "support/TestEnvironment.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::test::runProgram;

namespace {

QJsonObject info(const QString& path)
{
    const auto result = runProgram(QStringLiteral("lorvane-cli"),
                                   {QStringLiteral("info"), path, QStringLiteral("--json")});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return QJsonDocument::fromJson(result.out.toUtf8()).object();
}

QList<int> availableLogs(const QJsonObject& report)
{
    QList<int> kinds;
    for (const QJsonValue& entry : report.value(QStringLiteral("logAvailable")).toArray()) {
        if (entry.toObject().value(QStringLiteral("available")).toBool())
            kinds << entry.toObject().value(QStringLiteral("index")).toInt();
    }
    return kinds;
}

QString simulate(const QTemporaryDir& dir, const QString& kind, const QStringList& extra = {})
{
    const QString out = dir.filePath(kind == QLatin1String("split") ? kind : kind + ".DB");
    const auto result =
        runProgram(QStringLiteral("lorvane-sim"),
                   QStringList{QStringLiteral("--out"), out, QStringLiteral("--kind"), kind,
                               QStringLiteral("--start"), QStringLiteral("2024-03-04"),
                               QStringLiteral("--days"), QStringLiteral("2"),
                               QStringLiteral("--interval-minutes"), QStringLiteral("15"),
                               QStringLiteral("--points"), QStringLiteral("12"),
                               QStringLiteral("--seed"), QStringLiteral("3")} +
                       extra);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return out;
}

} // namespace

TEST(CliInfoOnSimulatedMeters, EachKindReportsItsDeviceAndLogs)
{
    struct Kind
    {
        const char* name;
        int deviceType;
        QList<int> logs;
    };
    const Kind kinds[] = {
        {"standard", 3, {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}},
        {"talmo", 0, {3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
        {"recorder", 4, {3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
        // Device types without a billing rule end the inventory before billing and compliance.
        {"basic", 6, {3, 11}},
    };
    QTemporaryDir dir;
    for (const Kind& kind : kinds) {
        const QJsonObject report = info(simulate(dir, QString::fromLatin1(kind.name)));
        const QJsonObject device = report.value(QStringLiteral("device")).toObject();
        EXPECT_EQ(device.value(QStringLiteral("DeviceTypeID")).toInt(), kind.deviceType)
            << kind.name;
        EXPECT_EQ(device.value(QStringLiteral("Status")).toString(), QStringLiteral("OK"));
        EXPECT_EQ(availableLogs(report), kind.logs) << kind.name;
        EXPECT_DOUBLE_EQ(report.value(QStringLiteral("version")).toDouble(), 8.6);

        const QJsonArray logs = report.value(QStringLiteral("logs")).toArray();
        ASSERT_FALSE(logs.isEmpty()) << kind.name;
        const QJsonObject snapshots = logs.at(0).toObject();
        EXPECT_EQ(snapshots.value(QStringLiteral("name")).toString(),
                  QStringLiteral("SnapShot Log"));
        EXPECT_EQ(snapshots.value(QStringLiteral("text")).toString(),
                  QStringLiteral("From 2024-03-04 00:00:00 to 2024-03-05 23:45:00"))
            << kind.name << ": two days of 15-minute snapshots";
        for (const QJsonValue& log : logs) {
            const QJsonObject entry = log.toObject();
            EXPECT_GE(entry.value(QStringLiteral("firstStart")).toString(),
                      QStringLiteral("2024-03-04 00:00:00"));
            EXPECT_LE(entry.value(QStringLiteral("lastEnd")).toString(),
                      QStringLiteral("2024-03-06 00:00:00"));
            EXPECT_GT(entry.value(QStringLiteral("records")).toInteger(), 0);
        }
    }
}

TEST(CliInfoOnSimulatedMeters, SplitLogMeterAndUserLabels)
{
    QTemporaryDir dir;
    const QString folder = simulate(dir, QStringLiteral("split"));
    const QStringList dml = QDir(folder).entryList({QStringLiteral("*.dml")});
    ASSERT_EQ(dml.size(), 1);
    const QJsonObject report = info(QDir(folder).filePath(dml.first()));
    EXPECT_EQ(report.value(QStringLiteral("device"))
                  .toObject()
                  .value(QStringLiteral("DeviceTypeID"))
                  .toInt(),
              5);
    EXPECT_TRUE(report.value(QStringLiteral("file"))
                    .toString()
                    .endsWith(QStringLiteral("logs/SYSTEM_EVENT/SYSTEM_EVENT.db")));
    QStringList present;
    for (const QJsonValue& file : report.value(QStringLiteral("logFiles")).toArray()) {
        if (file.toObject().value(QStringLiteral("present")).toBool())
            present << file.toObject().value(QStringLiteral("name")).toString();
    }
    for (const char* log : {"INTERVAL_1", "LIMIT_LOG", "DIGITAL_INPUT", "DIGITAL_OUTPUT", "FLICKER",
                            "WAVEFORM", "SYSTEM_EVENT", "PQ_LOG", "EN50160"})
        EXPECT_TRUE(present.contains(QString::fromLatin1(log))) << log;
    EXPECT_FALSE(present.contains(QStringLiteral("INTERVAL_8")));
    QStringList treeFiles;
    for (const QJsonValue& log : report.value(QStringLiteral("logs")).toArray())
        treeFiles << log.toObject().value(QStringLiteral("file")).toString();
    EXPECT_TRUE(treeFiles.contains(QStringLiteral("PQ_LOG")));
    EXPECT_TRUE(treeFiles.contains(QStringLiteral("INTERVAL_1")));

    const QJsonObject labelled =
        info(simulate(dir, QStringLiteral("standard"),
                      {QStringLiteral("--schema-version"), QStringLiteral("9.1")}));
    EXPECT_DOUBLE_EQ(labelled.value(QStringLiteral("version")).toDouble(), 9.1);
    EXPECT_FALSE(labelled.value(QStringLiteral("device"))
                     .toObject()
                     .value(QStringLiteral("UserItemLabels"))
                     .toArray()
                     .isEmpty());
}
