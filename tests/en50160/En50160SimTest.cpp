// SPDX-License-Identifier: GPL-3.0-or-later
// The list and the evaluation on meters that lorvane-sim writes, through the command line:
// the simulated meter counts with the same rules, so each page's verdict here must agree with
// the meter's own `S_` column, and the events with the counts of its PQ log.
#include "support/TestEnvironment.h"
#include "support/TestMeters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::test::ProcessResult;
using lorvane::test::runProgram;
using lorvane::test::simulate;

namespace {

QJsonDocument json(const ProcessResult& result)
{
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    return QJsonDocument::fromJson(result.out.toUtf8());
}

/// Simulates the default meter with `parameters` as its test settings and checks the list
/// and the evaluation against `meterVerdicts`, the meter's own verdicts of pages 0 to 6.
void checkSimulatedMeter(const QStringList& parameters, const char* const (&meterVerdicts)[7])
{
    QTemporaryDir folder;
    const QString meter = folder.filePath(QStringLiteral("m.DB"));
    ASSERT_TRUE(simulate(QStringList{QStringLiteral("--out"), meter} + parameters));

    const QJsonArray grids =
        json(runProgram(QStringLiteral("lorvane-cli"),
                        {QStringLiteral("en50160"), QStringLiteral("list"),
                         QStringLiteral("--meter"), meter, QStringLiteral("--from"),
                         QStringLiteral("2024-03-04"), QStringLiteral("--to"),
                         QStringLiteral("2024-03-07"), QStringLiteral("--format"),
                         QStringLiteral("json")}))
            .array();
    ASSERT_EQ(grids.size(), 1);
    const QJsonObject grid = grids.at(0).toObject();
    EXPECT_EQ(grid.value(QStringLiteral("caption")).toString(),
              QStringLiteral("EN50160 / IEC 61000-4-30 Information"));
    const QJsonArray rows = grid.value(QStringLiteral("rows")).toArray();
    ASSERT_EQ(rows.size(), 1);
    const QJsonArray row = rows.at(0).toArray();
    EXPECT_EQ(row.at(0).toString(), QStringLiteral("2024-03-04 00:00:00"));
    EXPECT_EQ(row.at(3).toString(), QStringLiteral("60"));
    EXPECT_EQ(row.at(4).toString(), QStringLiteral("120 V"));
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(row.at(5 + i).toString(), QString::fromLatin1(meterVerdicts[i])) << i;

    const QJsonObject evaluation =
        json(runProgram(QStringLiteral("lorvane-cli"),
                        {QStringLiteral("en50160"), QStringLiteral("evaluate"),
                         QStringLiteral("--meter"), meter, QStringLiteral("--test"),
                         row.at(13).toString(), QStringLiteral("--json")}))
            .object();
    const QJsonObject pages = evaluation.value(QStringLiteral("pages")).toObject();
    const char* keys[] = {"FRE", "LSV", "FVF", "FLI", "SVU", "HAR", "THD", "VOD", "SIV", "LIV"};
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(pages.value(QString::fromLatin1(keys[i])).toString(),
                  i < 7 ? QString::fromLatin1(meterVerdicts[i]) : QString())
            << keys[i];
    }
    const QJsonObject counts = evaluation.value(QStringLiteral("counts")).toObject();
    EXPECT_EQ(counts.value(QStringLiteral("N1")).toInt(), 24660);
    EXPECT_EQ(counts.value(QStringLiteral("N2")).toInt(), 411);
    EXPECT_EQ(counts.value(QStringLiteral("N3")).toInt(), 33);

    // Eight dips of the model and the PQ log's extra one are over-deviations by their
    // [PQ%] above 1; the two interruptions are short; swells have another condition.
    QMap<QString, int> byType;
    for (const QJsonValue& value : evaluation.value(QStringLiteral("events")).toArray()) {
        const QJsonObject event = value.toObject();
        ++byType[event.value(QStringLiteral("type")).toString()];
        EXPECT_TRUE(event.value(QStringLiteral("minPercent")).isDouble());
        EXPECT_TRUE(event.value(QStringLiteral("channel")).toString().startsWith(u'V'));
    }
    EXPECT_EQ(byType.value(QStringLiteral("VOD")), 9);
    EXPECT_EQ(byType.value(QStringLiteral("SIV")), 2);
    EXPECT_EQ(byType.value(QStringLiteral("LIV")), 0);
}

} // namespace

TEST(En50160OnSimulatedMeter, ListAndEvaluationAgreeWithTheMeter)
{
    // Every dip lifts a 10-minute extreme out of the band and the meter allows no rapid
    // change: FVF fails on the first test.
    checkSimulatedMeter({}, {"Passed", "Passed", "Failed", "Passed", "Passed", "Passed", "Passed"});
    // An island supply's frequency rule, and one rapid change a day allowed: the outer bins of
    // the dips are within the allowance and FVF passes on the second test.
    checkSimulatedMeter({QStringLiteral("--pq-test-parameters"), QStringLiteral("0,1")},
                        {"Passed", "Passed", "Passed", "Passed", "Passed", "Passed", "Passed"});
}

TEST(En50160OnSimulatedMeter, SplitLogMeterReadsItsTestAndPqLogFiles)
{
    QTemporaryDir folder;
    const QString out = folder.filePath(QStringLiteral("split"));
    ASSERT_TRUE(simulate(
        {QStringLiteral("--out"), out, QStringLiteral("--kind"), QStringLiteral("split")}));
    const QString dml = out + QStringLiteral("/split.dml");
    const QJsonArray row = json(runProgram(QStringLiteral("lorvane-cli"),
                                           {QStringLiteral("en50160"), QStringLiteral("list"),
                                            QStringLiteral("--meter"), dml,
                                            QStringLiteral("--from"), QStringLiteral("2024-03-04"),
                                            QStringLiteral("--to"), QStringLiteral("2024-03-07"),
                                            QStringLiteral("--format"), QStringLiteral("json")}))
                               .array()
                               .at(0)
                               .toObject()
                               .value(QStringLiteral("rows"))
                               .toArray()
                               .at(0)
                               .toArray();
    EXPECT_EQ(row.at(4).toString(), QStringLiteral("230 V"));
    EXPECT_TRUE(row.at(12).toString().endsWith(QStringLiteral("logs/EN50160/EN50160.db")));
    const QJsonObject evaluation =
        json(runProgram(QStringLiteral("lorvane-cli"),
                        {QStringLiteral("en50160"), QStringLiteral("evaluate"),
                         QStringLiteral("--meter"), dml, QStringLiteral("--test"),
                         row.at(13).toString(), QStringLiteral("--json")}))
            .object();
    const QJsonObject pages = evaluation.value(QStringLiteral("pages")).toObject();
    const char* keys[] = {"FRE", "LSV", "FVF", "FLI", "SVU", "HAR", "THD"};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(pages.value(QString::fromLatin1(keys[i])).toString(), row.at(5 + i).toString())
            << keys[i];
    // The events come from the meter's PQ_LOG file, not from its EN50160 log.
    EXPECT_FALSE(evaluation.value(QStringLiteral("events")).toArray().isEmpty());
}

TEST(En50160Command, BadCallsAndMissingTests)
{
    QTemporaryDir folder;
    const QString meter = folder.filePath(QStringLiteral("m.DB"));
    ASSERT_TRUE(
        simulate({QStringLiteral("--out"), meter, QStringLiteral("--days"), QStringLiteral("1")}));
    struct Case
    {
        const char* name;
        QStringList arguments;
        int exitCode;
        const char* message;
    };
    const Case cases[] = {
        {"no action", {}, 1, "en50160 needs list or evaluate"},
        {"list without range", {"list", "--meter", meter}, 1, "needs --from and --to"},
        {"evaluate without test", {"evaluate", "--meter", meter}, 1, "needs --test ID"},
        {"bad time",
         {"list", "--meter", meter, "--from", "2024-13-01", "--to", "2024-03-05"},
         1,
         "not a time"},
        {"missing meter",
         {"evaluate", "--meter", folder.filePath("none.DB"), "--test", "1"},
         2,
         "file not found"},
        {"unknown test", {"evaluate", "--meter", meter, "--test", "7"}, 6, "no EN 50160 test 7"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ProcessResult result = runProgram(
            QStringLiteral("lorvane-cli"), QStringList{QStringLiteral("en50160")} + c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_TRUE(result.err.contains(QString::fromLatin1(c.message)))
            << result.err.toStdString();
    }
}
