// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli relay-logic on a simulated recorder: the tree as JSON, as picture files, and
// the refusals of a record that is not there and of a bad call.
#include "RelaySimMeter.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

TEST(RelayLogicCommand, TreeAsJsonAndPictures)
{
    RelaySimMeter sim;
    const int row = sim.row(QStringLiteral("Feeder Lockout"), QStringLiteral("21:15"));
    ASSERT_GE(row, 0);
    const QString gIndex = sim.relays().rowKeys.at(row).value(QStringLiteral("GIndex")).toString();
    const QStringList call{QStringLiteral("relay-logic"), QStringLiteral("--meter"), sim.meterFile,
                           QStringLiteral("--gindex"), gIndex};
    const ProcessResult json =
        runProgram(QStringLiteral("lorvane-cli"), call + QStringList{QStringLiteral("--json")});
    ASSERT_EQ(json.exitCode, 0) << json.err.toStdString();
    const QJsonObject tree = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_EQ(tree.value(QStringLiteral("finalState")).toString(),
              QStringLiteral("Opened and Locked"));
    QStringList kinds;
    for (const QJsonValue& node : tree.value(QStringLiteral("nodes")).toArray()) {
        const QJsonObject n = node.toObject();
        kinds << n.value(QStringLiteral("kind")).toString();
        if (n.value(QStringLiteral("name")).toString() == QStringLiteral("Input 43 Remote Trip")) {
            EXPECT_EQ(n.value(QStringLiteral("state")).toInt(-1), 1);
        }
    }
    EXPECT_EQ(kinds.count(QStringLiteral("input")), 10);
    EXPECT_EQ(kinds.count(QStringLiteral("gate")), 7);
    EXPECT_EQ(kinds.count(QStringLiteral("setPath")), 2);
    EXPECT_EQ(tree.value(QStringLiteral("edges")).toArray().size(), 21);

    for (const char* suffix : {"svg", "png", "pdf"}) {
        const QString out = sim.dir.filePath(QStringLiteral("tree.") + QLatin1String(suffix));
        const ProcessResult picture = runProgram(QStringLiteral("lorvane-cli"),
                                                 call + QStringList{QStringLiteral("--out"), out});
        ASSERT_EQ(picture.exitCode, 0) << suffix << picture.err.toStdString();
        QFile file(out);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << suffix;
        EXPECT_GT(file.size(), 1000) << suffix;
        if (QLatin1String(suffix) == QLatin1String("svg")) {
            EXPECT_TRUE(file.readAll().contains("Opened and Locked"));
        }
    }

    const ProcessResult missing = runProgram(
        QStringLiteral("lorvane-cli"), {QStringLiteral("relay-logic"), QStringLiteral("--meter"),
                                        sim.meterFile, QStringLiteral("--gindex"), "99999"});
    EXPECT_EQ(missing.exitCode, 6);
    EXPECT_TRUE(missing.err.contains(QStringLiteral("Cannot find relay setup information.")));
    const ProcessResult bad = runProgram(QStringLiteral("lorvane-cli"),
                                         call + QStringList{QStringLiteral("--out"), "tree.bmp"});
    EXPECT_EQ(bad.exitCode, 1);
}
