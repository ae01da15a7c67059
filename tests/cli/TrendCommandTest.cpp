// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli trend and overview on a simulated meter: the counts against the hour tables,
// the overview's sums against the trend's, and a read-only file refused unchanged.
#include "platform/SqliteDatabase.h"
#include "support/TestEnvironment.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::SqliteDatabase;
using lorvane::test::runProgram;

namespace {

QByteArray digest(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

} // namespace

TEST(CliTrend, SetsCountEveryRowOfTheRangeAndTheOverviewSumsThem)
{
    QTemporaryDir dir;
    const QString meter = dir.filePath(QStringLiteral("m.DB"));
    ASSERT_EQ(runProgram(QStringLiteral("lorvane-sim"),
                         {QStringLiteral("--out"), meter, QStringLiteral("--days"),
                          QStringLiteral("2"), QStringLiteral("--interval-minutes"),
                          QStringLiteral("10"), QStringLiteral("--points"), QStringLiteral("4")})
                  .exitCode,
              0);
    const auto trend = runProgram(QStringLiteral("lorvane-cli"),
                                  {QStringLiteral("trend"), QStringLiteral("--meter"), meter,
                                   QStringLiteral("--points"), QStringLiteral("20617,20621"),
                                   QStringLiteral("--from"), QStringLiteral("2024-03-04 00:00:00"),
                                   QStringLiteral("--to"), QStringLiteral("2024-03-05 23:59:59"),
                                   QStringLiteral("--json")});
    ASSERT_EQ(trend.exitCode, 0) << trend.err.toStdString();
    const QJsonObject result = QJsonDocument::fromJson(trend.out.toUtf8()).object();
    const QJsonArray sets = result.value(QStringLiteral("sets")).toArray();
    ASSERT_EQ(sets.size(), 2);
    SqliteDatabase db(meter, SqliteDatabase::Mode::ReadOnly);
    QString sum = QStringLiteral("SELECT 0");
    for (const QString& table : db.tables())
        if (table.startsWith(QStringLiteral("HistLog_")))
            sum += QStringLiteral(" + (SELECT count(*) FROM %1 WHERE DataID = 20617)").arg(table);
    const qint64 rows = db.scalar(sum).toLongLong();
    EXPECT_EQ(sets.at(0).toObject().value(QStringLiteral("samples")).toInteger(), rows);
    const QJsonArray left = result.value(QStringLiteral("left")).toArray();
    EXPECT_LT(left.at(0).toDouble(),
              sets.at(1).toObject().value(QStringLiteral("minimum")).toDouble());
    EXPECT_TRUE(result.value(QStringLiteral("right")).isNull());

    const QByteArray before = digest(meter);
    const auto listed = runProgram(
        QStringLiteral("lorvane-cli"),
        {QStringLiteral("overview"), QStringLiteral("--meter"), meter, QStringLiteral("--json")});
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_EQ(digest(meter), before) << "without --analyze the file is only read";

    QFile::setPermissions(meter, QFile::ReadOwner);
    const auto refused = runProgram(QStringLiteral("lorvane-cli"),
                                    {QStringLiteral("overview"), QStringLiteral("--meter"), meter,
                                     QStringLiteral("--analyze")});
    EXPECT_EQ(refused.exitCode, 7) << refused.err.toStdString();
    EXPECT_EQ(digest(meter), before);
    QFile::setPermissions(meter, QFile::ReadOwner | QFile::WriteOwner);

    const auto analysed = runProgram(QStringLiteral("lorvane-cli"),
                                     {QStringLiteral("overview"), QStringLiteral("--meter"), meter,
                                      QStringLiteral("--analyze"), QStringLiteral("--json")});
    ASSERT_EQ(analysed.exitCode, 0) << analysed.err.toStdString();
    EXPECT_TRUE(analysed.err.contains(QStringLiteral("writing the overview tables")));
    for (const QJsonValue& set : QJsonDocument::fromJson(analysed.out.toUtf8())
                                     .object()
                                     .value(QStringLiteral("sets"))
                                     .toArray())
        if (set.toObject().value(QStringLiteral("dataId")).toInt() == 20617) {
            EXPECT_EQ(set.toObject().value(QStringLiteral("totalPoints")).toInteger(), rows);
        }
}

TEST(CliTrend, RefusesWrongArguments)
{
    const QList<QStringList> cases{
        {QStringLiteral("trend"), QStringLiteral("--meter"), QStringLiteral("x.DB")},
        {QStringLiteral("trend"), QStringLiteral("--meter"), QStringLiteral("x.DB"),
         QStringLiteral("--points"), QStringLiteral("1,a"), QStringLiteral("--from"),
         QStringLiteral("2024-03-04 00:00:00"), QStringLiteral("--to"),
         QStringLiteral("2024-03-05 00:00:00")},
        {QStringLiteral("trend"), QStringLiteral("--meter"), QStringLiteral("x.DB"),
         QStringLiteral("--points"), QStringLiteral("1"), QStringLiteral("--from"),
         QStringLiteral("2024-13-04"), QStringLiteral("--to"),
         QStringLiteral("2024-03-05 00:00:00")},
        {QStringLiteral("overview")},
    };
    for (const QStringList& arguments : cases)
        EXPECT_EQ(runProgram(QStringLiteral("lorvane-cli"), arguments).exitCode, 1)
            << arguments.join(u' ').toStdString();
}
