// SPDX-License-Identifier: GPL-3.0-or-later
// A view button press: the selection check's messages, the range handed to the grid, fresh or
// buffered loads, and a meter removed between selection and query; the data point capacity.
#include "query/selection/ViewDispatch.h"

#include "SelectionSimMeters.h"
#include "query/selection/AddFileToSystem.h"
#include "query/selection/DataPointSelection.h"
#include "query/selection/MeterTable.h"
#include "query/selection/SelectionCheck.h"
#include "query/selection/SplitLogMeter.h"
#include "query/selection/TimeSelection.h"
#include "query/selection/TopQueryBuffer.h"
#include "store/WallClock.h"
#include "support/MeterFileBuilder.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::SelectionSimMeters;

namespace {

struct Window
{
    SelectionSimMeters sim;
    MeterTable table;
    TopQueryBuffer buffer;
    DataPointSelection points;
    TimeSelection time;
    AddFileToSystem add{table, buffer, points, sim.scratchPath()};
    ViewDispatch dispatch{table, points, time, buffer, add};

    void selectPoints(const QList<qint32>& ids)
    {
        QList<DataPointRow> rows;
        for (qint32 id : ids)
            rows.append({id, QString()});
        points.openDialog(rows);
        points.addAll(1);
        points.accept(buffer);
    }
};

const QDateTime now(QDate(2024, 3, 20), QTime(14, 37, 20));

} // namespace

TEST(ViewDispatch, SelectionMessagesRangeAndBufferedLoads)
{
    Window w;
    ViewDispatch::Request r = w.dispatch.Command2_Click(1, now, 0, {});
    EXPECT_EQ(r.action, ViewDispatch::Action::Refused);
    EXPECT_EQ(r.messages, QStringList{QStringLiteral("Please select a meter data file.")});

    const QString path = w.sim.meter(QStringLiteral("standard"));
    ASSERT_TRUE(w.add.run(path, QStringLiteral("standard.DB"), 0).added);
    r = w.dispatch.Command2_Click(1, now, 0, {});
    EXPECT_EQ(r.messages.value(0),
              QStringLiteral("Please specify the date range to be used for parsing the log(s)."));
    EXPECT_EQ(w.dispatch.Command2_Click(0, now, 0, {}).action, ViewDispatch::Action::Grid)
        << "the status view needs no range";

    w.time.acceptPrevious(TimeSelection::Hours, QStringLiteral("1"), w.buffer);
    int dialogRuns = 0;
    r = w.dispatch.Command2_Click(1, now, 0, {[&] { ++dialogRuns; }, {}});
    EXPECT_EQ(dialogRuns, 1) << "no data points: the dialog opens once";
    EXPECT_EQ(r.action, ViewDispatch::Action::Refused);

    w.selectPoints({20617, 20618});
    r = w.dispatch.Command2_Click(1, now, 1, {});
    ASSERT_EQ(r.action, ViewDispatch::Action::Grid);
    EXPECT_EQ(r.logKind, LogKind::Snapshots);
    EXPECT_EQ(r.start, WallClock::at(QDate(2024, 3, 20), QTime(14, 37, 59)))
        << "59 seconds past the end, descending puts the end first";
    EXPECT_EQ(r.end, WallClock::at(QDate(2024, 3, 20), QTime(13, 37, 0)));
    EXPECT_EQ(r.itemIds, (QList<qint32>{20617, 20618}));
    EXPECT_EQ(r.itemsCounter, 2);
    ASSERT_EQ(r.files.size(), 1);
    EXPECT_EQ(r.files.first().dbPath, path);
    EXPECT_TRUE(r.fresh);

    w.buffer.setRow(1, {4, 1, r.start, r.end, 0});
    EXPECT_FALSE(w.dispatch.Command2_Click(1, now, 0, {}).fresh) << "second press is buffered";
    w.table.pickComboItem(0, 0);
    w.table.pickComboItem(0, 1);
    EXPECT_TRUE(w.dispatch.Command2_Click(3, now, 0, {}).fresh)
        << "limits skip the check; unchanged combos keep only their own rows";
    const auto limits = w.dispatch.Command2_Click(3, now, 0, {});
    EXPECT_EQ(limits.subKind, 4);
    EXPECT_EQ(limits.itemIds.size(), DataPointSelection::rows);

    EXPECT_EQ(w.dispatch.Command2_Click(10, now, 0, {}).action, ViewDispatch::Action::Billing);
    const auto comtrade = w.dispatch.Command2_Click(13, now, 0, {});
    EXPECT_EQ(comtrade.action, ViewDispatch::Action::Export);
    EXPECT_TRUE(comtrade.comtrade);

    // The file goes away between the selection and the query.
    ASSERT_TRUE(QFile::remove(path));
    r = w.dispatch.Command2_Click(1, now, 0, {});
    EXPECT_EQ(r.action, ViewDispatch::Action::Refused);
    EXPECT_EQ(r.messages.value(0),
              QStringLiteral("Cannot open source data file: ") + w.table.device(0).hardwareName);
}

TEST(ViewDispatch, EmptyDataPointsAndTheSplitLogStatusView)
{
    Window w;
    const QString path = w.sim.dir().filePath(QStringLiteral("empty.DB"));
    lorvane::test::MeterFileBuilder file(path);
    file.device(3, QStringLiteral("Halyx 3"), QStringLiteral("No Points"));
    file.close();
    ASSERT_TRUE(w.add.run(path, QStringLiteral("empty.DB"), 0).added);
    w.time.acceptPrevious(TimeSelection::Days, QStringLiteral("2"), w.buffer);
    w.selectPoints({20617});
    const auto r = w.dispatch.Command2_Click(1, now, 0, {});
    EXPECT_EQ(r.messages.value(0),
              QStringLiteral("Cannot find data points in data file: No Points"));

    const QString dml = w.sim.splitMeter();
    ASSERT_TRUE(w.add.run(dml, QStringLiteral("x.dml"), 0).added);
    QString asked;
    const auto cancelled = w.dispatch.Command2_Click(0, now, 0, {{}, [&](const QString& p) {
                                                                     asked = p;
                                                                     return QString();
                                                                 }});
    EXPECT_EQ(asked, dml);
    EXPECT_EQ(cancelled.action, ViewDispatch::Action::SplitLogNeeded);

    // Fault: a split-log meter opened as meter 2 had its chosen log loaded over meter 1.
    const QString systemEvent = SplitLogMeter::systemEventPath(w.sim.splitMeter());
    ASSERT_TRUE(w.add.run(path, QStringLiteral("empty.DB"), 0).added);
    ASSERT_TRUE(w.add.run(systemEvent, QStringLiteral("SYSTEM_EVENT.db"), 1).added);
    const QString chosen = SplitLogMeter::logFilePath(
        SplitLogMeter::dmlFolderOfLogFile(systemEvent), SplitLogMeter::systemEventLog);
    w.dispatch.Command2_Click(0, now, 0, {{}, [&](const QString&) { return chosen; }});
    EXPECT_EQ(w.table.device(0).filePath, path);
    EXPECT_EQ(w.table.device(1).filePath, chosen);
}

TEST(DataPointSelection, CapacityForOneAndTwoMeters)
{
    EXPECT_TRUE(DataPointSelection::fits(128, 1));
    EXPECT_FALSE(DataPointSelection::fits(129, 1));
    EXPECT_TRUE(DataPointSelection::fits(63, 2));
    EXPECT_FALSE(DataPointSelection::fits(64, 2));

    QList<DataPointRow> rows;
    for (qint32 id = 1; id <= 200; ++id)
        rows.append({id, QString()});
    DataPointSelection s;
    s.openDialog(rows);
    EXPECT_EQ(s.addAll(1), QStringLiteral("Too many data points selected for 1 device(s)."));
    EXPECT_EQ(s.selectedList().size(), 128);
    s.removeAll();
    EXPECT_EQ(s.addAll(2), QStringLiteral("Too many data points selected for 2 device(s)."));
    EXPECT_EQ(s.selectedList().size(), 63);
    s.remove(0);
    EXPECT_EQ(s.availableList().first().id, 1) << "a removed row goes back in id order";

    TopQueryBuffer buffer;
    DataPointSelection none;
    none.openDialog({});
    EXPECT_EQ(none.accept(buffer), QStringLiteral("There are no data points selected."));
    EXPECT_FALSE(none.valid());
}
