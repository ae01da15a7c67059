// SPDX-License-Identifier: GPL-3.0-or-later
#include "query/selection/MeterInventory.h"

#include "platform/Fault.h"
#include "query/selection/LogTree.h"
#include "store/MeterDatabase.h"
#include "support/MeterFileBuilder.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::MeterFileBuilder;

namespace {

const QList<qint64> complianceIds{30001, 30002, 30003, 30076, 30077, 30078, 30079, 30080, 30082};

DeviceRecord readRecord(const QString& path, int meterIndex = 0)
{
    MeterDatabase meter(path);
    return MeterInventory::read(meter, meterIndex);
}

QString dayRowArgs(int day)
{
    return QStringLiteral("2024-03-%1 00:00:00").arg(day, 2, 10, QLatin1Char('0'));
}

} // namespace

TEST(MeterInventory, MasterTablesWithRowsMakeTheInventory)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("m.DB"));
    MeterFileBuilder file(path);
    file.device(3, QStringLiteral("Halyx 3"), QStringLiteral("Feeder A"))
        .dataPoints({20617, 26005})
        .dayRow(QStringLiteral("AllEnergyDemandLogs"), dayRowArgs(1), 1, 4,
                QStringLiteral("2024-03-01 00:15:00"), QStringLiteral("2024-03-01 01:00:00"))
        .dayRow(QStringLiteral("AllLimitsLogs"), dayRowArgs(1), 1, 2,
                QStringLiteral("2024-03-01 08:00:00"), QStringLiteral("2024-03-01 09:00:00"))
        .dayRow(QStringLiteral("AllSystemEventLogs"), dayRowArgs(1), 1, 3,
                QStringLiteral("2024-03-01 00:00:05"), QStringLiteral("2024-03-01 23:00:00"));
    file.close();

    const DeviceRecord r = readRecord(path);
    EXPECT_FALSE(r.hasLog(LogKind::Snapshots)) << "an empty AllHistoricalLogs gives no snapshots";
    EXPECT_TRUE(r.hasLog(LogKind::Demand));
    EXPECT_TRUE(r.hasLog(LogKind::Limits));
    EXPECT_TRUE(r.hasLog(LogKind::SystemEvent));
    EXPECT_FALSE(r.hasLog(LogKind::PowerQuality));
    EXPECT_FALSE(r.hasLog(LogKind::Flicker));
    EXPECT_TRUE(r.hasLog(LogKind::Billing)) << "type 3 bills on data id 26005";
    EXPECT_FALSE(r.hasLog(LogKind::Compliance));
}

TEST(MeterInventory, FlickerNeedsTheDownloadOptionAndAFlickerDataId)
{
    struct Case
    {
        const char* option;
        QVariant dataId;
        bool expected;
    };
    const Case cases[] = {
        {"Log 1 & Flicker", 27401, true},
        {"Log 1 & Flicker", 20617, false}, // no flicker data point
        {"Log 1", 27401, false},           // no flicker download
        // A writer that stored ids as reals must not make 13700 look like a flicker id.
        {"Flicker", 13700.0, false},
    };
    for (const Case& c : cases) {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("m.DB"));
        MeterFileBuilder file(path);
        file.device(0, QStringLiteral("Talmo"), QStringLiteral("Main"))
            .download(QStringLiteral("2024-03-02 10:00:00"), QString::fromLatin1(c.option))
            .sql(QStringLiteral("INSERT INTO DataPoints (DataID) VALUES (?)"), {c.dataId});
        file.close();
        EXPECT_EQ(readRecord(path).hasLog(LogKind::Flicker), c.expected)
            << c.option << " / " << c.dataId.toString().toStdString();
    }
}

TEST(MeterInventory, BillingAndComplianceFollowTheDeviceType)
{
    struct Case
    {
        int type;
        QList<qint64> ids;
        bool testRows;
        bool billing;
        bool compliance;
    };
    QList<qint64> all = complianceIds;
    const QList<qint64> eight = complianceIds.mid(0, 8);
    const Case cases[] = {
        {0, QList<qint64>{20825} + all, true, true, true},
        {0, QList<qint64>{26005}, false, false, false},
        {3, QList<qint64>{26005} + all, true, true, true},
        {3, QList<qint64>{26005} + all, false, true, false},  // no test rows
        {3, QList<qint64>{26005} + eight, true, true, false}, // one id short
        {4, QList<qint64>{202010} + all, true, true, true},   // the second id is enough
        {5, QList<qint64>{26005}, false, true, false},
        // Other types end the inventory before billing and compliance.
        {6, QList<qint64>{26005} + all, true, false, false},
        {2, QList<qint64>{20825} + all, true, false, false},
    };
    for (const Case& c : cases) {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("m.DB"));
        MeterFileBuilder file(path);
        file.device(c.type, QStringLiteral("type"), QStringLiteral("M")).dataPoints(c.ids);
        if (c.testRows)
            file.sql(QStringLiteral("INSERT INTO AllPQTestLogs (ID_PQTest, StartTime, EndTime, "
                                    "NominalVoltage) VALUES (1, '2024-03-04 00:00:00', "
                                    "'2024-03-11 00:00:00', 230.0)"));
        file.close();
        const DeviceRecord r = readRecord(path);
        EXPECT_EQ(r.hasLog(LogKind::Billing), c.billing) << "type " << c.type;
        EXPECT_EQ(r.hasLog(LogKind::Compliance), c.compliance) << "type " << c.type;
        EXPECT_EQ(r.hasNominalVoltage, c.compliance) << "type " << c.type;
    }
}

TEST(MeterInventory, DeviceRecordFields)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Plant.DB"));
    MeterFileBuilder file(path, 9.1);
    file.device(3, QStringLiteral("Halyx 3"), QStringLiteral("Plant incomer"), QVariant())
        .sql(QStringLiteral("UPDATE DeviceInformation SET KGate = 4"))
        .download(QStringLiteral("2024-03-02 10:00:00"), QStringLiteral("Log 1"),
                  QStringLiteral("FW 3.2.1"))
        .sql(QStringLiteral("INSERT INTO User_Defined_Item_Labels VALUES (1, 7, 'Old name'), "
                            "(2, 7, 'Pump 7'), (1, 9, 'O''Neil feeder')"));
    file.close();

    const DeviceRecord r = readRecord(path);
    EXPECT_TRUE(r.used);
    EXPECT_EQ(r.status, QStringLiteral("OK"));
    EXPECT_EQ(r.deviceTypeId, 3);
    EXPECT_EQ(r.deviceType, QStringLiteral("Halyx 3"));
    EXPECT_EQ(r.hardwareName, QStringLiteral("Plant incomer"));
    EXPECT_EQ(r.hardwareId, QStringLiteral("N/A")) << "a NULL HardwareID reads as N/A";
    EXPECT_EQ(r.address, 17);
    EXPECT_EQ(r.fileName, QStringLiteral("Plant.DB"));
    EXPECT_EQ(r.kGate, 4);
    EXPECT_EQ(r.firmwareInfo3, QStringLiteral("FW 3.2.1"));
    ASSERT_EQ(r.userItemLabels.size(), 2);
    EXPECT_EQ(r.userItemLabels.at(0), qMakePair(qint64(7), QStringLiteral("Pump 7")))
        << "the label of the highest profile wins";
    EXPECT_EQ(r.userItemLabels.at(1), qMakePair(qint64(9), QStringLiteral("O'Neil feeder")));

    EXPECT_TRUE(readRecord(path, 1).userItemLabels.isEmpty()) << "meter 2 reads no labels";
}

TEST(MeterInventory, GateAndFirmwareDefaults)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("m.DB"));
    MeterFileBuilder file(path);
    file.device(0, QStringLiteral("Talmo"), QStringLiteral("M"))
        .sql(QStringLiteral("UPDATE DeviceInformation SET KGate = 0"))
        .download(QStringLiteral("2024-03-02 10:00:00"), QStringLiteral("Log 1"),
                  QStringLiteral("FW 1"));
    file.close();
    DeviceRecord r = readRecord(path);
    EXPECT_EQ(r.kGate, 0);
    EXPECT_TRUE(r.firmwareInfo3.isEmpty()) << "no gates: the firmware text is not read";

    // A file whose DeviceInformation lacks KGate altogether (another writer's layout).
    const QString other = dir.filePath(QStringLiteral("other.DB"));
    {
        SqliteDatabase db(other, SqliteDatabase::Mode::Create);
        db.executeScript(QStringLiteral(
            "CREATE TABLE ID_Table (Version REAL, Note TEXT, Extra TEXT);"
            "INSERT INTO ID_Table VALUES (8.6, 'n', 'x');"
            "CREATE TABLE DeviceInformation (DeviceTypeID INTEGER, DeviceType TEXT, "
            "HardwareName TEXT, HardwareID TEXT, Address TEXT, Colour TEXT);"
            "INSERT INTO DeviceInformation VALUES (4, 'Halyx 4 Recorder', 'R', 'H', 'x', 'red');"
            "CREATE TABLE DataPoints (DataID INTEGER);"
            "CREATE TABLE AllLogs (LogOptionName TEXT);"
            "CREATE TABLE AllWaveformLogs ([Date/Time] TEXT, LogTablesIndex INTEGER, Records "
            "INTEGER, [StartDate/Time] TEXT, [EndDate/Time] TEXT);"
            "INSERT INTO AllWaveformLogs VALUES ('2024-03-01 00:00:00', 1, NULL, NULL, NULL);"));
    }
    r = readRecord(other);
    EXPECT_EQ(r.kGate, -1);
    EXPECT_EQ(r.address, 0) << "an address that holds no number reads as 0";
    EXPECT_TRUE(r.hasLog(LogKind::Waveform)) << "missing master tables count as empty";
    EXPECT_FALSE(r.hasLog(LogKind::Snapshots));
    MeterDatabase meter(other);
    EXPECT_TRUE(LogTree::read(meter).isEmpty()) << "NULL Records counts as 0";
}

TEST(MeterInventory, DeviceInformationWithoutRowsIsADamagedFile)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Empty.DB"));
    MeterFileBuilder(path).close();
    try {
        readRecord(path);
        FAIL() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), Fault::Kind::Damaged);
        EXPECT_EQ(fault.message(),
                  QStringLiteral("This database is damaged. Table:  DeviceInformation\n"
                                 "Database: Empty.DB"));
        EXPECT_EQ(fault.path(), path);
    }
}

TEST(LogTree, SpanOfEachLogFromItsRowsWithRecords)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("m.DB"));
    MeterFileBuilder file(path);
    file.device(3, QStringLiteral("Halyx 3"), QStringLiteral("M"))
        // Rows are inserted out of order: the tree orders them itself.
        .dayRow(QStringLiteral("AllPQLogs"), dayRowArgs(3), 3, 2,
                QStringLiteral("2024-03-03 04:00:00"), QStringLiteral("2024-03-03 22:10:00"))
        .dayRow(QStringLiteral("AllPQLogs"), dayRowArgs(1), 1, 5,
                QStringLiteral("2024-03-01 01:00:00"), QStringLiteral("2024-03-01 20:00:00"))
        .dayRow(QStringLiteral("AllPQLogs"), dayRowArgs(4), 4, 0,
                QStringLiteral("2024-03-04 00:00:00"), QStringLiteral("2024-03-04 23:00:00"))
        .dayRow(QStringLiteral("AllHistoricalLogs"), dayRowArgs(1), 1, 96,
                QStringLiteral("2024-03-01 00:00:00"), QStringLiteral("2024-03-01 23:45:00"));
    file.close();

    MeterDatabase meter(path);
    const QList<LogTreeEntry> tree = LogTree::read(meter);
    ASSERT_EQ(tree.size(), 2);
    EXPECT_EQ(tree.at(0).label, QStringLiteral("SnapShot Log"));
    EXPECT_EQ(tree.at(1).label, QStringLiteral("Power Quality Log"));
    EXPECT_EQ(tree.at(1).text(), QStringLiteral("From 2024-03-01 01:00:00 to 2024-03-03 22:10:00"))
        << "a row with no records does not extend the span";
    EXPECT_EQ(tree.at(1).records, 7);
}
