// SPDX-License-Identifier: GPL-3.0-or-later
// The report command's road: the XML folder beside a meter, the choice by meter kind and row,
// the week rule of the generator's file and the generator that is or is not there.
#include "en50160/ReportRoad.h"

#include "platform/Fault.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using Road = ReportRoad::Road;

namespace {

void touch(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

} // namespace

TEST(ReportRoad, WeekOfTheGeneratorsFile)
{
    struct Case
    {
        QDate day;
        int week;
    };
    const Case cases[] = {
        {{2024, 1, 1}, 52},   // Monday: day 1 + 0 is below 7
        {{2024, 1, 6}, 52},   // 6 + 0
        {{2024, 1, 7}, 1},    // 7 + 0
        {{2024, 1, 13}, 1},   // 13
        {{2024, 1, 14}, 2},   // 14
        {{2023, 1, 1}, 1},    // Sunday: 1 + 6
        {{2022, 1, 1}, 52},   // Saturday: 1 + 5
        {{2022, 1, 2}, 1},    // 2 + 5
        {{2024, 12, 31}, 52}, // 366 + 0
        {{2020, 12, 31}, 52}, // Wednesday start: 366 + 2
        {{2023, 12, 31}, 53}, // Sunday start: 365 + 6
    };
    for (const Case& c : cases)
        EXPECT_EQ(ReportRoad::week(c.day), c.week) << qPrintable(c.day.toString(Qt::ISODate));
    EXPECT_EQ(ReportRoad::xmlFile(QStringLiteral("/m/EN50160/XML_DATA"), {2024, 3, 4}),
              QStringLiteral("/m/EN50160/XML_DATA/2024_W09.xml"));
}

TEST(ReportRoad, XmlFolderAndChoiceByMeterAndRow)
{
    QTemporaryDir folder;
    const QString database = folder.filePath(QStringLiteral("logs/EN50160/EN50160.db"));
    touch(database);
    const QString xml = folder.filePath(QStringLiteral("logs/EN50160/EN50160/XML_DATA"));
    QDir().mkpath(xml);
    EXPECT_EQ(ReportRoad::findMeterReportXml(database), QString()); // empty folder
    touch(xml + QStringLiteral("/2024_W09.xml"));
    EXPECT_EQ(ReportRoad::findMeterReportXml(database), QDir(xml).absolutePath());

    struct Case
    {
        int type;
        QString folder;
        int row;
        int rows;
        Road road;
    };
    const Case cases[] = {
        {5, xml, 0, 3, Road::ExternalGenerator}, {5, xml, 1, 3, Road::ExternalGenerator},
        {5, xml, 2, 3, Road::Evaluation},        {5, xml, -1, 3, Road::Evaluation},
        {5, QString(), 0, 3, Road::Evaluation},  {3, xml, 0, 3, Road::Evaluation},
        {5, xml, 0, 1, Road::Evaluation},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ReportRoad::choose(c.type, c.folder, c.row, c.rows), c.road)
            << c.type << ' ' << c.row << '/' << c.rows;
}

TEST(ReportRoad, GeneratorFoundStartedOrMissing)
{
    QTemporaryDir folder;
    const QString programs = folder.filePath(QStringLiteral("bin"));
    const QString stored = folder.filePath(QStringLiteral("tools/gen.exe"));
    EXPECT_EQ(ReportRoad::generatorPath(stored, programs), QString());

    QStringList started;
    const auto starter = [&started](const QString& program, const QStringList& arguments) {
        started << program << arguments;
        return true;
    };
    try {
        ReportRoad::runExternalGenerator(QStringLiteral("/x"), {2024, 3, 4},
                                         ReportRoad::generatorPath(stored, programs), starter);
        ADD_FAILURE() << "started without a generator";
    } catch (const Fault& fault) {
        EXPECT_EQ(
            fault.message(),
            QStringLiteral("EN50160 Report Generator not found!  Unable to generate report."));
    }
    EXPECT_TRUE(started.isEmpty());

    const QString beside = QDir(programs).filePath(QStringLiteral("EN50160_ReportGenerator.exe"));
    touch(beside);
    EXPECT_EQ(ReportRoad::generatorPath(stored, programs), beside); // stored one missing
    EXPECT_EQ(ReportRoad::generatorPath(QString(), programs), beside);
    touch(stored);
    EXPECT_EQ(ReportRoad::generatorPath(stored, programs), stored);

    ReportRoad::runExternalGenerator(QStringLiteral("/x"), {2024, 1, 2}, stored, starter);
    EXPECT_EQ(started, QStringList({stored, QStringLiteral("/x/2024_W52.xml")}));
}
