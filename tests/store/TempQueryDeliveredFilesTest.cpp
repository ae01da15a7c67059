// SPDX-License-Identifier: GPL-3.0-or-later
// The two files built from SQL sources at build time: the scratch template must agree with the
// meter layouts its working tables copy, and the dictionary must name every planned point.
#include "platform/SqliteDatabase.h"
#include "store/MeterSchema.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

/// Column names as one text, so that a failure shows the names.
std::string joined(const QStringList& columns)
{
    return columns.join(QLatin1Char(',')).toStdString();
}

std::string withDeviceIndex(QStringList columns)
{
    columns << QStringLiteral("DeviceIndex");
    return joined(columns);
}

/// "{group} {item}" through the two-level index, or empty when either level has no row.
QString label(SqliteDatabase& dictionary, int id)
{
    const QVariant group = dictionary.scalar(
        QStringLiteral("SELECT Name FROM Types WHERE ID = ? AND ReferenceID = ID"), {id / 200});
    const QString itemTable = QStringLiteral("Type_%1").arg(id / 200);
    if (!group.isValid() || !dictionary.tableExists(itemTable))
        return {};
    const QVariant item = dictionary.scalar(
        QStringLiteral("SELECT Name FROM [%1] WHERE ID = ?").arg(itemTable), {id % 200});
    return item.isValid() ? group.toString() + QLatin1Char(' ') + item.toString() : QString();
}

} // namespace

TEST(TempQueryDeliveredFiles, TemplateTablesCopyTheMeterLayouts)
{
    SqliteDatabase scratch(test::dataFolder() + QStringLiteral("/Resource/LorvaneTempQuery.DB"),
                           SqliteDatabase::Mode::ReadOnly);
    // PQ and waveform ms columns hold tenths from 9.0 on, so the template follows the newest
    // layouts; column names are the same in every version.
    const MeterSchema meter(9.1);
    const QList<std::pair<const char*, TableLayout>> copies = {
        {"HLogTimeIndextmp", meter.hourTimeIndex()},
        {"PQLogtmp", meter.pqLog()},
        {"WaveformLogtmp", meter.waveformLog()},
        {"PQWaveLogDataItemtmp", meter.table(QStringLiteral("PQWaveLogDataItem"))},
        {"HSInputLabelstmp", meter.table(QStringLiteral("HSInputLabels"))},
        {"FullScalestmp", meter.table(QStringLiteral("FullScales"))},
        {"ScaledFormatstmp", meter.table(QStringLiteral("ScaledFormats"))},
        {"InputLogAtmp", meter.inputLog()},
        {"InputLogDataItemtmp", meter.table(QStringLiteral("InputLogDataItem"))},
        {"RelayLogDataItemtmp", meter.table(QStringLiteral("RelayLogDataItem"))},
        {"RelayLogAtmp", meter.relayLog()},
        {"Flicker_MaxMintmp", meter.flickerMaxMin()},
        {"SystemEventLogAtmp", meter.systemEventLog()},
    };
    for (const auto& [table, layout] : copies) {
        ASSERT_FALSE(layout.columns().isEmpty()) << table;
        EXPECT_EQ(joined(scratch.columns(QString::fromLatin1(table))),
                  withDeviceIndex(layout.columnNames()))
            << table;
    }

    // Limit rows are the day's records joined with their items, without the join key.
    QStringList limitRows = meter.limitsLog().columnNames();
    limitRows.removeAll(QStringLiteral("LinkIndex"));
    for (const char* item : {"DataID", "LimitID", "LSet", "LSAB", "LSet%", "DataIndex"})
        limitRows << QString::fromLatin1(item);
    EXPECT_EQ(joined(scratch.columns(QStringLiteral("LimitsLogtmp"))), withDeviceIndex(limitRows));

    // Every template that holds meter rows tags them -1 until the loader stamps them.
    const QStringList untagged = {
        QStringLiteral("ID_Table"),        QStringLiteral("AllQueries"),
        QStringLiteral("PQTestLogsMain"),  QStringLiteral("PQTestLogsDetail"),
        QStringLiteral("HistSubQuerytmp"), QStringLiteral("sqlite_sequence")};
    int templates = 0;
    for (const QString& table : scratch.tables()) {
        if (untagged.contains(table))
            continue;
        ++templates;
        EXPECT_TRUE(table.endsWith(QStringLiteral("tmp"))) << qPrintable(table);
        EXPECT_EQ(scratch
                      .scalar(QStringLiteral("SELECT dflt_value FROM pragma_table_info(?) "
                                             "WHERE name = 'DeviceIndex'"),
                              {table})
                      .toString(),
                  QStringLiteral("-1"))
            << qPrintable(table);
        EXPECT_FALSE(scratch.hasRows(QStringLiteral("SELECT 1 FROM [%1]").arg(table)));
    }
    EXPECT_EQ(templates, 18);
    EXPECT_TRUE(scratch.tableHasField(QStringLiteral("PQTestLogsDetail"),
                                      QStringLiteral("NominalVoltage")));
}

TEST(TempQueryDeliveredFiles, DictionaryNamesThePointPlan)
{
    SqliteDatabase dictionary(
        QDir(test::programPath(QString())).filePath(QStringLiteral("QLMNameList.DB")),
        SqliteDatabase::Mode::ReadOnly);
    EXPECT_NEAR(dictionary.scalar(QStringLiteral("SELECT Version FROM ID_TABLE")).toDouble(), 6.9,
                1e-9);

    QStringList devices;
    SqlStatement rows = dictionary.prepare(QStringLiteral("SELECT * FROM Devices ORDER BY ID"));
    while (rows.next())
        devices << rows.value(1).toString();
    EXPECT_EQ(devices, (QStringList{"Talmo", "Talmo Lite", "Relay Module", "Halyx 3",
                                    "Halyx 4 Recorder", "Halyx 15", "Halyx 6 Basic"}));

    EXPECT_EQ(label(dictionary, 20617), QStringLiteral("Voltage Van"));
    EXPECT_EQ(label(dictionary, 20653), QStringLiteral("Voltage Unbalance %"));
    EXPECT_EQ(label(dictionary, 21404), QStringLiteral("Power Factor PF Total"));
    EXPECT_EQ(label(dictionary, 26006), QStringLiteral("Energy kVAh"));
    EXPECT_EQ(label(dictionary, 27406), QStringLiteral("Flicker Plt Vc"));
    EXPECT_EQ(label(dictionary, 30001), QStringLiteral("EN 50160 Frequency 10 s Mean"));
    EXPECT_EQ(label(dictionary, 30076), QStringLiteral("EN 50160 Pst Va"));
    EXPECT_EQ(dictionary.scalar(QStringLiteral("SELECT Description FROM DeviceModbusMap "
                                               "WHERE GlobalID = ?"),
                                {202006}),
              QVariant(QStringLiteral("kWh Delivered (Modbus)")));

    // Every point a device type offers has a name, and all 82 statistics are there.
    for (int type = 0; type <= 6; ++type) {
        SqlStatement points =
            dictionary.prepare(QStringLiteral("SELECT DataID FROM [T%1]").arg(type));
        while (points.next()) {
            const int id = points.value(0).toInt();
            if (id < 200000) {
                EXPECT_FALSE(label(dictionary, id).isEmpty()) << "T" << type << " " << id;
            }
        }
    }
    for (int id = 30001; id <= 30082; ++id)
        EXPECT_FALSE(label(dictionary, id).isEmpty()) << id;
    EXPECT_TRUE(label(dictionary, 30083).isEmpty());
    // 48 snapshot points of heads 103 to 137 plus the two billing registers.
    EXPECT_EQ(dictionary.scalar(QStringLiteral("SELECT count(*) FROM T0")).toInt(), 50);
    EXPECT_FALSE(dictionary.hasRows(QStringLiteral("SELECT 1 FROM T2")));
}
