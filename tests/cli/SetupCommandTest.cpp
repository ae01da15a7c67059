// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli setup on a simulated meter: the settings tables as CSV grids, one table by name,
// and a clear refusal of an unknown table.
#include "support/TestEnvironment.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::test::runProgram;

TEST(CliSetup, PrintsTheSettingsTablesOfTheMeter)
{
    QTemporaryDir dir;
    const QString meter = dir.filePath(QStringLiteral("m.DB"));
    ASSERT_EQ(runProgram(QStringLiteral("lorvane-sim"),
                         {QStringLiteral("--out"), meter, QStringLiteral("--days"),
                          QStringLiteral("2"), QStringLiteral("--interval-minutes"),
                          QStringLiteral("15"), QStringLiteral("--points"), QStringLiteral("12")})
                  .exitCode,
              0);
    const auto relays = runProgram(QStringLiteral("lorvane-cli"),
                                   {QStringLiteral("setup"), meter, QStringLiteral("--table"),
                                    QStringLiteral("relaylogdataitem")});
    ASSERT_EQ(relays.exitCode, 0) << relays.err.toStdString();
    const QStringList lines = relays.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 5); // caption, heading, relays 0, 1 and 2
    EXPECT_EQ(lines.at(0), QStringLiteral("RelayLogDataItem"));
    EXPECT_TRUE(lines.at(1).startsWith(QStringLiteral("Index,ModuleIndex,")));
    EXPECT_TRUE(lines.at(2).contains(QStringLiteral("Load Shed")));
    EXPECT_TRUE(lines.at(3).contains(QStringLiteral("Undervoltage Alarm")));
    EXPECT_TRUE(lines.at(4).contains(QStringLiteral("Feeder Lockout")));

    const auto all = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("setup"), meter});
    ASSERT_EQ(all.exitCode, 0);
    for (const char* caption : {"DeviceInformation", "InputLogDataItem", "PQWaveLogDataItem",
                                "FullScales", "ScaledFormats"})
        EXPECT_TRUE(all.out.contains(QStringLiteral("\n%1\n").arg(QLatin1String(caption))) ||
                    all.out.startsWith(QLatin1String(caption)))
            << caption;

    const auto unknown = runProgram(
        QStringLiteral("lorvane-cli"),
        {QStringLiteral("setup"), meter, QStringLiteral("--table"), QStringLiteral("Nothing")});
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_TRUE(unknown.err.contains(QStringLiteral("unknown table: Nothing")));
}
