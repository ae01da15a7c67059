// SPDX-License-Identifier: GPL-3.0-or-later
// The selection without a window: the tree of devices and logs a window shows, the newest
// meter file of the retrieved-logs folder, and the inputs, relays and demand items of a meter.
#include "query/selection/SelectionSession.h"

#include "SelectionSimMeters.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/LogFileList.h"
#include "query/selection/MeterItemOffer.h"
#include "query/selection/ViewButtons.h"
#include "store/DeviceTypeTable.h"
#include "store/LogKind.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

using namespace lorvane;
using lorvane::test::SelectionSimMeters;

TEST(SelectionSession, TreeListsEachParentBeforeItsChildren)
{
    SelectionSimMeters sim;
    SelectionSession session(2, sim.scratchPath());
    for (int i = 0; i < 2; ++i) {
        const QString path =
            sim.meter(i == 0 ? QStringLiteral("standard") : QStringLiteral("talmo"));
        ASSERT_TRUE(session.addFile().run(path, QFileInfo(path).fileName(), i).added);
    }
    const QList<SelectionSession::TreeNode> nodes = session.tree(DeviceTypeTable());
    ASSERT_FALSE(nodes.isEmpty());
    EXPECT_EQ(nodes.first().key, QStringLiteral("ROOT"));
    EXPECT_EQ(nodes.first().text, QStringLiteral("All Devices"));
    QSet<QString> seen;
    QHash<QString, QString> parents;
    for (const SelectionSession::TreeNode& node : nodes) {
        EXPECT_TRUE(node.parentKey.isEmpty() || seen.contains(node.parentKey))
            << node.key.toStdString();
        EXPECT_FALSE(seen.contains(node.key)) << node.key.toStdString();
        seen.insert(node.key);
        parents.insert(node.key, node.parentKey);
    }
    for (int i = 1; i <= 2; ++i) {
        const DeviceRecord& device = session.meters().device(i - 1);
        const QString meter = QStringLiteral("Device_%1").arg(i);
        EXPECT_EQ(parents.value(meter), QStringLiteral("DevID#_%1").arg(device.deviceTypeId));
        EXPECT_EQ(parents.value(QStringLiteral("LogsID_3|D_%1|Logs_1").arg(i)),
                  QStringLiteral("DeItem_3|D_%1").arg(i));
        const auto found = std::find_if(nodes.cbegin(), nodes.cend(),
                                        [&](const auto& node) { return node.key == meter; });
        ASSERT_NE(found, nodes.cend());
        EXPECT_EQ(found->filePath, device.filePath);
    }
}

TEST(SelectionSession, NewestMeterFileOfTheFolderOrTheInvalidPath)
{
    SelectionSimMeters sim;
    const QString missing = sim.dir().filePath(QStringLiteral("missing"));
    const SelectionSession::NewestFile none = SelectionSession::newestMeterFile(missing);
    EXPECT_TRUE(none.path.isEmpty());
    EXPECT_EQ(none.refusal,
              QStringLiteral("Invalid path\nPlease start Tessera Ext to resolve error: ") +
                  missing);

    const QString folder = sim.dir().filePath(QStringLiteral("retrieved"));
    QDir().mkpath(folder);
    EXPECT_TRUE(SelectionSession::newestMeterFile(folder).path.isEmpty());
    const QDateTime stamp(QDate(2024, 5, 1), QTime(8, 0));
    // b is newest; c has b's time but is listed after it, so b stays the choice.
    for (const auto& [name, age] : {std::pair{"a.DB", 0}, std::pair{"b.DB", 60},
                                    std::pair{"c.DB", 60}, std::pair{"d.txt", 120}}) {
        QFile file(folder + QLatin1Char('/') + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setFileTime(stamp.addSecs(age), QFileDevice::FileModificationTime));
    }
    EXPECT_EQ(QFileInfo(SelectionSession::newestMeterFile(folder).path).fileName(),
              QStringLiteral("b.DB"));
}

// Fault: the inputs, relays and demand items chosen for a meter never reached the view; the
// press of a view button now hands each meter's own choice over with its file.
TEST(SelectionSession, ChosenItemsTravelWithTheirMetersFileAndRenewTheBuffer)
{
    SelectionSimMeters sim;
    SelectionSession session(2, sim.scratchPath());
    const QString path = sim.meter(QStringLiteral("standard"));
    ASSERT_TRUE(session.addFile().run(path, QFileInfo(path).fileName(), 0).added);
    session.timeSelection().acceptPrevious(TimeSelection::Hours, QStringLiteral("1"),
                                           session.topQueryBuffer());
    TopQueryBuffer::Row held;
    held.queryIndex = 4;
    session.topQueryBuffer().setRow(ViewButtons::Inputs, held);

    MeterItems chosen;
    chosen.inputs = {{0, 1}, {0, 3}};
    chosen.relays = {{1, 0}};
    chosen.demandIds = {26003, 26201};
    MeterItems tooMany;
    for (int i = 0; i <= MeterItems::demandCount; ++i)
        tooMany.demandIds << 26000 + i;
    EXPECT_FALSE(session.setMeterItems(1, chosen)) << "meter 2 is not open";
    EXPECT_FALSE(session.setMeterItems(0, tooMany));
    EXPECT_TRUE(session.topQueryBuffer().holds(ViewButtons::Inputs)) << "a refusal keeps it";
    ASSERT_TRUE(session.setMeterItems(0, chosen));
    EXPECT_FALSE(session.topQueryBuffer().holds(ViewButtons::Inputs));

    for (const int button : {ViewButtons::Inputs, ViewButtons::Relays, ViewButtons::Demand}) {
        const ViewDispatch::Request request =
            session.dispatch().Command2_Click(button, QDateTime::currentDateTime(), 0, {});
        ASSERT_EQ(request.action, ViewDispatch::Action::Grid) << button;
        ASSERT_EQ(request.files.size(), 1);
        EXPECT_EQ(request.files.at(0).items.inputs, chosen.inputs);
        EXPECT_EQ(request.files.at(0).items.relays, chosen.relays);
        EXPECT_EQ(request.files.at(0).items.demandIds, chosen.demandIds);
    }
}

// The choice offered for each meter: inputs and relays from the settings tables, demand ids
// from the energy/demand log; a split-log meter offers those of its log files, not of the
// system event file it is opened through.
TEST(SelectionSession, MeterItemOfferReadsEveryLogFileOfTheMeter)
{
    SelectionSimMeters sim;
    for (const bool split : {false, true}) {
        SelectionSession session(2, sim.scratchPath());
        const QString path = split ? sim.splitMeter() : sim.meter(QStringLiteral("standard"));
        ASSERT_TRUE(session.addFile().run(path, QFileInfo(path).fileName(), 0).added);
        const QList<LogFileEntry> files = session.meters().usedFiles();
        ASSERT_EQ(files.size(), 1);
        const MeterItemOffer offer = MeterItemOffer::read(files.first());

        // What the files hold, counted apart from the offer.
        qint64 inputs = 0;
        qint64 relays = 0;
        for (const LogFileEntry& file : LogFileList::expand(files, int(LogKind::Snapshots))) {
            if (!QFileInfo(file.dbPath).isFile())
                continue;
            SqliteDatabase db(file.dbPath, SqliteDatabase::Mode::ReadOnly);
            for (const auto& [table, column, count] :
                 {std::tuple{"InputLogDataItem", "InputIndex", &inputs},
                  std::tuple{"RelayLogDataItem", "RelayIndex", &relays}}) {
                if (db.tableExists(QLatin1String(table)))
                    *count += db.scalar(QStringLiteral("SELECT count(DISTINCT [ModuleIndex] * "
                                                       "1000 + [%1]) FROM %2")
                                            .arg(QLatin1String(column), QLatin1String(table)))
                                  .toLongLong();
            }
        }
        SCOPED_TRACE(split ? "split-log meter" : "one file");
        EXPECT_GT(inputs + relays, 0);
        EXPECT_EQ(offer.inputs.size(), inputs);
        EXPECT_EQ(offer.relays.size(), relays);
        for (const MeterItemOffer::Channel& input : offer.inputs)
            EXPECT_FALSE(input.label.isEmpty());
        if (!split) {
            ASSERT_FALSE(offer.demandIds.isEmpty());
            EXPECT_TRUE(std::is_sorted(offer.demandIds.cbegin(), offer.demandIds.cend()));
        }
    }
}
