// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MeterSchema.h"

#include "platform/SqliteDatabase.h"
#include "store/SchemaCatalog.h"

#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

QSet<QString> tableNames(double version)
{
    QSet<QString> names;
    for (const TableLayout& table : MeterSchema(version).fileTables())
        names.insert(table.name());
    return names;
}

} // namespace

// The tables that every writer of an 8.6 file creates; a reader that misses one, or a
// catalogue that invents one, breaks files written by other programs.
TEST(MeterSchema, FileTablesAreThoseOfTheStorageContract)
{
    const QSet<QString> expected{"ID_Table",          "DeviceInformation",   "AllLogs",
                                 "DataPoints",        "LastTimeStamps",      "ScaledFormats",
                                 "AllHistoricalLogs", "AllEnergyDemandLogs", "AllLimitsLogs",
                                 "AllInputLogs",      "AllRelayLogs",        "AllFlickerLogs",
                                 "AllWaveformLogs",   "AllPQLogs",           "AllSystemEventLogs",
                                 "AllPQTestLogs",     "LimitsLogDataItem",   "PQWaveLogDataItem",
                                 "FullScales",        "InputLogDataItem",    "RelayLogDataItem",
                                 "HSInputLabels",     "HistLogTimeIndexTmp", "InputLogA",
                                 "RelayLogA",         "Flicker_MaxMin",      "SystemEventLogA"};
    EXPECT_EQ(tableNames(8.6), expected);
    QSet<QString> withLabels = expected;
    withLabels.insert(QStringLiteral("User_Defined_Item_Labels"));
    EXPECT_EQ(tableNames(9.1), withLabels);

    // Each master table of the catalogue is a table of the file.
    for (const QString& master : SchemaCatalog::masterTables())
        EXPECT_TRUE(expected.contains(master)) << master.toStdString();
}

TEST(MeterSchema, EveryLayoutCreatesAndTakesARow)
{
    QTemporaryDir dir;
    SqliteDatabase db(dir.filePath(QStringLiteral("m.DB")), SqliteDatabase::Mode::Create);
    const MeterSchema schema(9.0);
    QList<TableLayout> layouts = schema.fileTables();
    for (LogKind kind : {LogKind::Limits, LogKind::Inputs, LogKind::Relays, LogKind::Flicker,
                         LogKind::Waveform, LogKind::PowerQuality, LogKind::SystemEvent})
        layouts << schema.dayTable(kind, 12);
    layouts << schema.hourTimeIndexTable(LogKind::Snapshots, 12, 23)
            << schema.hourValueTable(LogKind::Demand, 12, 0);
    for (const TableLayout& layout : layouts) {
        ASSERT_FALSE(layout.name().isEmpty());
        db.executeScript(layout.createSql());
        QVariantList values;
        for (int i = 0; i < layout.columns().size(); ++i)
            values << QVariant();
        db.execute(layout.insertSql(), values);
        EXPECT_EQ(db.columns(layout.name()), layout.columnNames()) << layout.name().toStdString();
    }
    EXPECT_TRUE(db.tableExists(QStringLiteral("HistLogTimeIndex_12_23")));
    EXPECT_TRUE(db.tableExists(QStringLiteral("EDLog_12_0")));
    EXPECT_TRUE(db.tableExists(QStringLiteral("Flicker_MaxMin_12")));
    // Index names are file-wide, so they carry their table's name.
    EXPECT_TRUE(db.hasRows(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'index' AND "
                                          "name = 'SystemEventLog_12_LinkIndex'")));
    // From 9.0 the PQ and waveform fractions of a second are real milliseconds.
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT type FROM pragma_table_info('PQLog_12') WHERE "
                                       "name = 'Startms'")),
              QStringLiteral("REAL"));
    EXPECT_EQ(MeterSchema(8.6).pqLog().columns().at(1).type, ColumnType::Integer);
}
