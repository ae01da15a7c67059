// SPDX-License-Identifier: GPL-3.0-or-later
// The logs beside a Device Master Log and the path of the chosen one.
#include "query/selection/DeviceMasterLog.h"

#include "SelectionSimMeters.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace lorvane;
using Status = DeviceMasterLog::Status;

TEST(DeviceMasterLog, RowsByTheFoldersBesideTheMarker)
{
    QTemporaryDir dir;
    const QString dml = dir.filePath(QStringLiteral("Alone.dml"));
    QFile(dml).open(QIODevice::WriteOnly);
    DeviceMasterLog log;
    log.init(dml);
    ASSERT_EQ(log.rows().size(), DeviceMasterLog::logCount);
    for (const auto& row : log.rows())
        EXPECT_EQ(row.status, Status::NotAvailable) << row.logName.toStdString();

    // A log folder whose database bears another name has no log data.
    QDir(dir.path()).mkpath(QStringLiteral("logs/FLICKER"));
    QFile(dir.filePath(QStringLiteral("logs/FLICKER/other.db"))).open(QIODevice::WriteOnly);
    log.init(dml);
    EXPECT_EQ(log.rows().at(12).status, Status::NoLogData);
    EXPECT_EQ(DeviceMasterLog::statusText(log.rows().at(12).status), QStringLiteral("No Log Data"));

    lorvane::test::SelectionSimMeters sim;
    const QString split = sim.splitMeter();
    log.init(split);
    EXPECT_EQ(log.rows().at(0).status, Status::Available);    // INTERVAL_1
    EXPECT_EQ(log.rows().at(2).status, Status::NotAvailable); // INTERVAL_3 is not kept
    EXPECT_EQ(log.rows().at(16).status, Status::Available);   // TRANSIENT
    EXPECT_EQ(log.selectedPath(13),
              QFileInfo(split).path() + QStringLiteral("/logs/SYSTEM_EVENT/SYSTEM_EVENT.db"));
    EXPECT_TRUE(log.selectedPath(17).isEmpty());
    EXPECT_EQ(DeviceMasterLog::selectedLabel(-1), QStringLiteral("No Log Selected"));
    EXPECT_EQ(DeviceMasterLog::displayName(17), QStringLiteral("None"));

    EXPECT_EQ(DeviceMasterLog::split_file_path(QStringLiteral("C:\\a\\b.dml")).folder,
              QStringLiteral("C:\\a"));
    EXPECT_EQ(DeviceMasterLog::split_file_path(QStringLiteral("b.dml")).folder,
              QStringLiteral("."));
}
