// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli power-graph on two simulated days: the view the window draws as numbers, the
// records as the window exports them, and the refusals of the window's entry checks.
#include "support/TestEnvironment.h"
#include "support/TestMeters.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::test::ProcessResult;
using lorvane::test::runProgram;

namespace {

QString meter()
{
    static const QTemporaryDir dir;
    static const QString path = [] {
        const QString out = dir.filePath(QStringLiteral("Power.DB"));
        lorvane::test::simulate(QStringList{QStringLiteral("--out"), out} +
                                lorvane::test::smallMeterArguments());
        return out;
    }();
    return path;
}

ProcessResult powerGraph(const QStringList& options)
{
    return runProgram(QStringLiteral("lorvane-cli"),
                      QStringList{QStringLiteral("power-graph"), QStringLiteral("--meter"), meter(),
                                  QStringLiteral("--from"), QStringLiteral("2024-03-04"),
                                  QStringLiteral("--to"), QStringLiteral("2024-03-05")} +
                          options);
}

} // namespace

TEST(PowerGraphCommand, TheCircularViewAsNumbers)
{
    const ProcessResult result =
        powerGraph({QStringLiteral("--points"), QStringLiteral("20617,20621"),
                    QStringLiteral("--min"), QStringLiteral("110"), QStringLiteral("--max"),
                    QStringLiteral("130"), QStringLiteral("--json")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QJsonObject view = QJsonDocument::fromJson(result.out.toUtf8()).object();
    EXPECT_EQ(view.value(QStringLiteral("period")).toString(), "Mar 04, 2024 to Mar 05, 2024");
    EXPECT_EQ(view.value(QStringLiteral("totalRecords")).toInt(), 2 * (2 * 96 - 12));
    // A day's view from midnight: its 96 records and the next midnight, which closes the turn.
    EXPECT_EQ(view.value(QStringLiteral("recordsInView")).toInt(), 2 * 97);
    const QJsonArray items = view.value(QStringLiteral("items")).toArray();
    ASSERT_EQ(items.size(), 2);
    const QJsonArray records = items.at(0).toObject().value(QStringLiteral("records")).toArray();
    ASSERT_EQ(records.size(), 97);
    EXPECT_DOUBLE_EQ(records.at(0).toObject().value(QStringLiteral("angle")).toDouble(), 0);
    EXPECT_DOUBLE_EQ(records.at(24).toObject().value(QStringLiteral("angle")).toDouble(), 90);
    EXPECT_DOUBLE_EQ(records.at(96).toObject().value(QStringLiteral("angle")).toDouble(), 360);
    for (const QJsonValue r : records) {
        const double share = r.toObject().value(QStringLiteral("share")).toDouble();
        ASSERT_TRUE(share > 0 && share < 1) << share;
    }
}

TEST(PowerGraphCommand, CsvRecordsAndRefusedEntries)
{
    const ProcessResult csv = powerGraph({QStringLiteral("--points"), QStringLiteral("20617"),
                                          QStringLiteral("--kind"), QStringLiteral("xy")});
    ASSERT_EQ(csv.exitCode, 0) << csv.err.toStdString();
    EXPECT_EQ(csv.out.count(QLatin1Char('\n')), 1 + 2 * 96 - 12);
    struct Case
    {
        QStringList options;
        const char* message;
    };
    const Case cases[] = {
        {{QStringLiteral("--points"), QStringLiteral("1,2,3,4,5,6,7")},
         "Maximum 6 items. Too many items selected."},
        {{QStringLiteral("--points"), QStringLiteral("20617"), QStringLiteral("--days"),
          QStringLiteral("24856")},
         "Number of days to view cannot be > 24855"},
        {{QStringLiteral("--points"), QStringLiteral("20617"), QStringLiteral("--days"),
          QStringLiteral("0")},
         "Number of days to view cannot be 0 or less"},
        // Malformed times were taken as no time at all before.
        {{QStringLiteral("--points"), QStringLiteral("20617"), QStringLiteral("--to"),
          QStringLiteral("2024-02-30")},
         "not a time"},
        {{QStringLiteral("--points"), QStringLiteral("20617"), QStringLiteral("--start"),
          QStringLiteral("noon")},
         "not a time"},
    };
    for (const Case& c : cases) {
        const ProcessResult result = powerGraph(c.options);
        EXPECT_EQ(result.exitCode, 1) << c.message;
        EXPECT_TRUE(result.err.contains(QString::fromLatin1(c.message)))
            << result.err.toStdString();
    }
}

TEST(PowerGraphCommand, PicturesOfTheDrawnView)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    for (const char* suffix : {"svg", "png", "pdf"}) {
        const QString out = dir.filePath(QStringLiteral("graph.") + QLatin1String(suffix));
        const ProcessResult result = powerGraph(
            {QStringLiteral("--points"), QStringLiteral("20617"), QStringLiteral("--out"), out,
             QStringLiteral("--kind"), QStringLiteral("xy")});
        ASSERT_EQ(result.exitCode, 0) << suffix << result.err.toStdString();
        QFile file(out);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << suffix;
        const QByteArray bytes = file.readAll();
        EXPECT_GT(bytes.size(), 1000) << suffix;
        // The SVG carries the drawn texts: the window's header and record count.
        if (QLatin1String(suffix) == QLatin1String("svg")) {
            EXPECT_TRUE(bytes.contains("Mar 04, 2024 to Mar 05, 2024"));
            EXPECT_TRUE(bytes.contains("Total Number of Records: 180"));
        }
    }
    EXPECT_EQ(powerGraph({QStringLiteral("--points"), QStringLiteral("20617"),
                          QStringLiteral("--out"), dir.filePath(QStringLiteral("graph.bmp"))})
                  .exitCode,
              1);
}
