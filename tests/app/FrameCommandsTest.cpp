// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AboutInfo.h"
#include "app/CommandLine.h"
#include "app/HelpTopics.h"
#include "app/OpenLogRequest.h"
#include "app/PrinterCheck.h"
#include "app/ProgressTimeStamp.h"
#include "app/RunContext.h"
#include "app/StartCommand.h"
#include "query/selection/DataPointSelection.h"
#include "query/selection/TimeSelection.h"
#include "query/selection/TopQueryBuffer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::AboutInfo;
using lorvane::CommandLine;
using lorvane::DataPointSelection;
using lorvane::OpenLogRequest;
using lorvane::StartCommand;
using lorvane::TimeSelection;
using lorvane::TopQueryBuffer;

namespace {
const QDate today(2024, 3, 15);
}

TEST(CommandLine, FieldsAreCutOutAndTheRestIsThePath)
{
    const CommandLine command = CommandLine::parse(
        "LOGID:2 FRT:030124101530 \"/data/My Meters/Meter 1.DB\" LRT:031524235959 FRM:250 "
        "LRM:999 SS:3 VM:1 CHA:26003,x,26004,,20617",
        today);
    EXPECT_EQ(command.logId, 2);
    EXPECT_EQ(command.firstRecordTime, QDateTime(QDate(2024, 3, 1), QTime(10, 15, 30)));
    EXPECT_EQ(command.lastRecordTime, QDateTime(QDate(2024, 3, 15), QTime(23, 59, 59)));
    EXPECT_TRUE(command.timeGiven);
    EXPECT_EQ(command.firstRecordMs, 250);
    EXPECT_EQ(command.lastRecordMs, 999);
    EXPECT_EQ(command.ss, 3);
    EXPECT_EQ(command.vm, 1);
    EXPECT_EQ(command.path, "/data/My Meters/Meter 1.DB");
    EXPECT_EQ(command.channels, QStringList({"26003", "x", "26004", "", "20617"}));
    EXPECT_EQ(command.channelIds(), QList<qint32>({26003, 26004, 20617}));
    EXPECT_FALSE(command.parseError);
}

TEST(CommandLine, TimesOfAnotherLengthKeepTheDefaults)
{
    // 13 characters and 11 characters: neither is read.
    const CommandLine command =
        CommandLine::parse("FRT:0301241015300 LRT:03012410153 /m.DB", today);
    EXPECT_EQ(command.firstRecordTime, QDateTime(today, QTime(0, 0)));
    EXPECT_EQ(command.lastRecordTime, QDateTime(today.addDays(-1), QTime(0, 0)));
    EXPECT_FALSE(command.timeGiven);
    EXPECT_EQ(command.path, "/m.DB");

    // Twelve characters that are no date leave the default as well.
    EXPECT_FALSE(CommandLine::recordTime("133224101530").isValid());
    EXPECT_FALSE(CommandLine::recordTime("0301241015ab").isValid());
    EXPECT_EQ(CommandLine::recordTime("123199000000").date(), QDate(1999, 12, 31));
}

TEST(CommandLine, PathAloneQuotesAndBadNumbers)
{
    EXPECT_EQ(CommandLine::parse("  \"/a b/c.DB\"  ", today).path, "/a b/c.DB");
    EXPECT_TRUE(CommandLine::parse("", today).path.isEmpty());
    EXPECT_TRUE(CommandLine::parse("LOGID:3", today).path.isEmpty());

    const CommandLine bad = CommandLine::parse("LOGID:two /m.DB", today);
    EXPECT_TRUE(bad.parseError);
    EXPECT_EQ(bad.logId, 0);
    EXPECT_EQ(bad.path, "/m.DB");

    // At most 128 channels are taken.
    QStringList many;
    for (int i = 1; i <= 130; ++i)
        many << QString::number(i);
    const CommandLine full = CommandLine::parse("CHA:" + many.join(',') + " /m.DB", today);
    ASSERT_EQ(full.channelIds().size(), CommandLine::mostChannels);
    EXPECT_EQ(full.channelIds().last(), 128);
}

TEST(CommandLine, LogIdPressesItsViewButton)
{
    const QList<int> expected = {0, 1, 3, 4, 5, 7, 8, 11, 12};
    for (int logId = 1; logId <= 9; ++logId)
        EXPECT_EQ(CommandLine::viewButton(logId), expected[logId - 1]) << logId;
    for (int logId : {-1, 0, 10, 76})
        EXPECT_EQ(CommandLine::viewButton(logId), -1) << logId;
}

TEST(OpenLogRequest, VerbRules)
{
    EXPECT_EQ(OpenLogRequest::parse("OPENLOG /data/m.DB").path, "/data/m.DB");
    EXPECT_EQ(OpenLogRequest::parse("openlog /data/My Meter.DB").path, "/data/My Meter.DB");
    // Only the first blank splits; further blanks belong to the path.
    EXPECT_EQ(OpenLogRequest::parse("OpenLog  /x.DB").path, " /x.DB");

    for (const char* refused : {"", "OPENLOG", "OPENLOG ", "OPEN /x.DB", "CLOSELOG /x.DB"}) {
        const OpenLogRequest request = OpenLogRequest::parse(refused);
        EXPECT_FALSE(request.opensLog()) << refused;
        EXPECT_TRUE(request.path.isEmpty()) << refused;
    }
    EXPECT_EQ(OpenLogRequest::parse("closelog x").verb, "CLOSELOG");
    EXPECT_EQ(OpenLogRequest::parse(OpenLogRequest::command("/a b.DB")).path, "/a b.DB");
}

TEST(StartCommand, ASecondCopyHandsOverEveryFieldWithAnAbsolutePath)
{
    // Only "OPENLOG {path}" went over: the running copy lost the range, channels and view.
    const QString request = StartCommand::handOver(
        "LOGID:2 FRT:030424000000 LRT:030524120000 CHA:21017,20617 \"My Meter.DB\"",
        QDir("/data/meters"), today);
    EXPECT_EQ(request, "COMMANDLINE LOGID:2 FRT:030424000000 LRT:030524120000 "
                       "CHA:21017,20617 \"/data/meters/My Meter.DB\"");
    EXPECT_TRUE(StartCommand::handOver("LOGID:2 CHA:1", QDir("/data"), today).isEmpty());

    const struct
    {
        QString request;
        QString path;
        int button;
        QList<qint32> points;
    } cases[] = {
        {request, "/data/meters/My Meter.DB", 1, {21017, 20617}},
        // OPENLOG only opens: its path is taken as it is, quotes and blanks included.
        {"OPENLOG /data/My Meter.DB", "/data/My Meter.DB", -1, {}},
        {"CLOSELOG /data/m.DB", "", -1, {}},
    };
    for (const auto& c : cases) {
        const StartCommand command = StartCommand::fromRequest(c.request, today);
        EXPECT_EQ(command.path(), c.path) << c.request.toStdString();
        TimeSelection time;
        DataPointSelection points;
        TopQueryBuffer buffer;
        EXPECT_EQ(command.applyToSelection(time, points, buffer), c.button);
        EXPECT_EQ(points.usedIds(), c.points);
        EXPECT_EQ(time.option() == TimeSelection::Between, c.button >= 0);
    }
}

TEST(AboutInfo, TheOutsideComponentLineIsWhatTheComponentSays)
{
    // The line was fixed to "not installed" whatever the component said.
    const struct
    {
        lorvane::OutsideComponentProbe probe;
        const char* line;
    } cases[] = {
        {{}, "HALVXPWR.DLL Info: DLL file is not installed"},
        {[] {
             return lorvane::OutsideComponentStatus{false, {}};
         },
         "HALVXPWR.DLL Info: DLL file is not installed"},
        {[] {
             return lorvane::OutsideComponentStatus{true, "4.1.7"};
         },
         "HALVXPWR.DLL Info: DLL file is installed, version: 4.1.7"},
    };
    for (const auto& c : cases) {
        lorvane::RunContext context;
        context.outsideComponent = c.probe;
        EXPECT_EQ(AboutInfo::gather(context).lines().last(), c.line);
    }
}

TEST(AboutInfo, SizesAndLines)
{
    EXPECT_EQ(AboutInfo::sizeText(0), "0 Bytes");
    EXPECT_EQ(AboutInfo::sizeText(999), "999 Bytes");
    EXPECT_EQ(AboutInfo::sizeText(1000), "1.0 kBytes");
    EXPECT_EQ(AboutInfo::sizeText(1550), "1.6 kBytes");
    EXPECT_EQ(AboutInfo::sizeText(999999), "1000.0 kBytes");
    EXPECT_EQ(AboutInfo::sizeText(1000000), "1.0 MBytes");
    EXPECT_EQ(AboutInfo::sizeText(2500000000LL), "2.5 GBytes");

    AboutInfo info;
    info.programVersion = "Lorvane (v0.1.0, PID=7)";
    info.scratchFile = "/t/x.TempQuery";
    info.defaultDataPath = "/data";
    info.freeSpace = 3000000;
    info.scratchSize = 512;
    info.dictionaryVersion = 7.5;
    info.dictionaryChanged = QDateTime(QDate(2024, 1, 2), QTime(3, 4, 5));
    info.templateVersion = 8.6;
    info.templateNote = "template";
    info.externalToolText = "DLL file is not installed";
    const QStringList lines = info.lines();
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], "Lorvane (v0.1.0, PID=7)");
    EXPECT_EQ(lines[1], "Current Temp Query File: /t/x.TempQuery");
    EXPECT_EQ(lines[3], "Free Space On Disk: 3.0 MBytes");
    EXPECT_EQ(lines[4], "Temp Query File Size: 512 Bytes");
    EXPECT_EQ(lines[5], "QLMNameList.DB Info: Version 7.50, Last Moification Date/Time By User "
                        "01/02/2024 03:04:05");
    EXPECT_EQ(lines[6], "LorvaneTempQuery.DB Info: Version 8.6,  template");
    EXPECT_EQ(lines[7], "HALVXPWR.DLL Info: DLL file is not installed");
}

TEST(ProgressTimeStamp, MinutesSecondsMilliseconds)
{
    EXPECT_EQ(lorvane::ProgressTimeStamp::text(0), "(00:00:000) ");
    EXPECT_EQ(lorvane::ProgressTimeStamp::text(61007), "(01:01:007) ");
    EXPECT_EQ(lorvane::ProgressTimeStamp::text(59999), "(00:59:999) ");
    EXPECT_EQ(lorvane::ProgressTimeStamp::text(125 * 60000 + 1), "(125:00:001) ");
}

TEST(PrinterCheck, Messages)
{
    EXPECT_EQ(lorvane::PrinterCheck::message(0, "", ""),
              "Please add a default printer to your system.\n"
              "(Printing service settings -> Printers -> Add Printer)");
    EXPECT_TRUE(lorvane::PrinterCheck::message(1, "Office", "Ready").isEmpty());
    EXPECT_EQ(lorvane::PrinterCheck::message(2, "Office", "Error"),
              "Problem with your default printer, it may not be ready\nOffice");
}

TEST(HelpTopics, PagesAndMissingHelp)
{
    QTemporaryDir folder;
    const lorvane::HelpTopics topics(folder.path());
    EXPECT_TRUE(topics.page("Contents").isEmpty());
    QFile page(folder.filePath("system-properties.md"));
    ASSERT_TRUE(page.open(QIODevice::WriteOnly));
    page.close();
    EXPECT_EQ(topics.page("SystemProperties"), folder.filePath("system-properties.md"));
    EXPECT_EQ(lorvane::HelpTopics::pageName("no such topic"), "main-window.md");
    EXPECT_EQ(lorvane::HelpTopics::pageName("LRMain"), "selection-window.md");
    EXPECT_EQ(lorvane::HelpTopics::pageName("LRLimits"), "log-grid.md");
    EXPECT_EQ(lorvane::HelpTopics::missingHelpMessage(),
              "Unable to display Help Contents. There is no Help associated with this program.");
}
