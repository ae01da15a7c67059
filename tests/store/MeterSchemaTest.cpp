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

TEST(MeterSchema, DayTablesNameTheirIndexesAndCountMillisecondsFrom90)
{
    QTemporaryDir dir;
    SqliteDatabase db(dir.filePath(QStringLiteral("m.DB")), SqliteDatabase::Mode::Create);
    const MeterSchema schema(9.0);
    for (LogKind kind : {LogKind::PowerQuality, LogKind::SystemEvent})
        db.executeScript(schema.dayTable(kind, 12).createSql());
    // Index names are file-wide, so they carry their table's name.
    EXPECT_TRUE(db.hasRows(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'index' AND "
                                          "name = 'SystemEventLog_12_LinkIndex'")));
    // From 9.0 the PQ and waveform fractions of a second are real milliseconds.
    EXPECT_EQ(db.scalar(QStringLiteral("SELECT type FROM pragma_table_info('PQLog_12') WHERE "
                                       "name = 'Startms'")),
              QStringLiteral("REAL"));
    EXPECT_EQ(MeterSchema(8.6).pqLog().columns().at(1).type, ColumnType::Integer);
}
