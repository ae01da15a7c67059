// SPDX-License-Identifier: GPL-3.0-or-later
// The view button rule by device type, the split-log meter's files and the union of meters.
#include "query/selection/ViewButtons.h"

#include "SelectionSimMeters.h"
#include "query/selection/MeterTable.h"
#include "query/selection/SplitLogMeter.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::SelectionSimMeters;
using B = ViewButtons;

namespace {

QList<int> on(const ViewButtons::States& states)
{
    QList<int> buttons;
    for (int i = 0; i < ViewButtons::count; ++i) {
        if (states[i])
            buttons << i;
    }
    return buttons;
}

DeviceRecord record(int type, std::initializer_list<LogKind> logs)
{
    DeviceRecord r;
    r.used = true;
    r.deviceTypeId = type;
    for (LogKind log : logs)
        r.logAvailable[static_cast<size_t>(log)] = true;
    return r;
}

const std::initializer_list<LogKind> everyLog{
    LogKind::Snapshots,   LogKind::Demand,  LogKind::Limits,    LogKind::Inputs,
    LogKind::Relays,      LogKind::Flicker, LogKind::Waveform,  LogKind::PowerQuality,
    LogKind::SystemEvent, LogKind::Billing, LogKind::Compliance};

/// A split-log folder where the listed logs have a non-empty file; returns the meter record.
DeviceRecord splitFolder(const QString& root, const QList<int>& logs, const QList<int>& empty = {})
{
    for (int log : logs + empty) {
        const QString path = SplitLogMeter::logFilePath(root, log);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        if (!empty.contains(log))
            f.write("x");
    }
    DeviceRecord r = record(5, {});
    r.filePath = SplitLogMeter::logFilePath(root, 11);
    return r;
}

} // namespace

TEST(ViewButtons, EveryDeviceTypeRow)
{
    const QList<int> full{B::DatabaseStatus, B::Snapshots,   B::Limits, B::Waveform,
                          B::PowerQuality,   B::Inputs,      B::Relays, B::Billing,
                          B::Flicker,        B::SystemEvent, B::EN50160};
    EXPECT_EQ(on(B::enabledBy(record(0, everyLog))), full);
    EXPECT_EQ(on(B::enabledBy(record(3, everyLog))), full);
    QList<int> recorder = full;
    recorder.removeAll(B::EN50160);
    EXPECT_EQ(on(B::enabledBy(record(4, everyLog))), recorder);
    EXPECT_EQ(on(B::enabledBy(record(6, everyLog))),
              (QList<int>{B::DatabaseStatus, B::Snapshots, B::Billing, B::SystemEvent}));
    for (int type : {1, 2, 7, -1})
        EXPECT_TRUE(on(B::enabledBy(record(type, everyLog))).isEmpty()) << type;
    // Demand alone never enables a button; a meter without logs keeps the status view.
    EXPECT_EQ(on(B::enabledBy(record(3, {LogKind::Demand}))), QList<int>{B::DatabaseStatus});
}

TEST(ViewButtons, SplitLogMeterByItsFilesAndTheEN50160Rule)
{
    QTemporaryDir dir;
    // EN 50160 with neither INTERVAL_2 nor both INTERVAL_7 and INTERVAL_8: no compliance.
    const DeviceRecord a = splitFolder(dir.filePath("a"), {16, 22, 25, 11}, {3, 1});
    EXPECT_EQ(on(B::enabledBy(a)),
              (QList<int>{B::DatabaseStatus, B::Snapshots, B::Waveform, B::SystemEvent}))
        << "INTERVAL_7 gives snapshots, TRANSIENT the waveform; empty files count as missing";
    const DeviceRecord b = splitFolder(dir.filePath("b"), {16, 22, 23});
    EXPECT_TRUE(B::enabledBy(b)[B::EN50160]);
    const DeviceRecord c = splitFolder(dir.filePath("c"), {16, 2, 13, 5, 7, 9});
    EXPECT_EQ(on(B::enabledBy(c)), (QList<int>{B::DatabaseStatus, B::Snapshots, B::PowerQuality,
                                               B::Inputs, B::Relays, B::Flicker, B::EN50160}));
    DeviceRecord billing = splitFolder(dir.filePath("d"), {});
    billing.logAvailable[static_cast<size_t>(LogKind::Billing)] = true;
    EXPECT_EQ(on(B::enabledBy(billing)), (QList<int>{B::DatabaseStatus, B::Billing}));
}

TEST(ViewButtons, SimulatedMetersAndTheUnionOfTwo)
{
    SelectionSimMeters sim;
    auto basic = MeterTable::open({sim.meter(QStringLiteral("basic"))}, sim.scratchPath());
    const QList<int> basicButtons = on(B::enabled(basic.table));
    // Type 6 has no billing data id of its own, so its billing button stays off.
    EXPECT_EQ(basicButtons, (QList<int>{B::DatabaseStatus, B::Snapshots, B::SystemEvent}));

    auto two = MeterTable::open(
        {sim.meter(QStringLiteral("basic")), sim.meter(QStringLiteral("recorder"))},
        sim.scratchPath());
    const B::States both = B::enabled(two.table);
    EXPECT_TRUE(both[B::Limits]) << "the recorder's limits join the basic meter's buttons";
    EXPECT_FALSE(both[B::EN50160]);
    EXPECT_FALSE(both[B::Pqdif]) << "no export component";
    EXPECT_TRUE(B::enabled(two.table, true)[B::Comtrade]);

    two.table.pickComboItem(1, 0);
    EXPECT_EQ(on(B::enabled(two.table)), basicButtons) << "No Meter drops the recorder";
    two.table.pickComboItem(0, 0);
    EXPECT_TRUE(on(B::enabled(two.table, true)).isEmpty());

    auto split = MeterTable::open({sim.splitMeter()}, sim.scratchPath());
    const B::States splitButtons = B::enabled(split.table);
    for (int b : {B::DatabaseStatus, B::Snapshots, B::Limits, B::Waveform, B::PowerQuality,
                  B::Inputs, B::Relays, B::Flicker, B::SystemEvent, B::Billing, B::EN50160})
        EXPECT_TRUE(splitButtons[b]) << b;
}
