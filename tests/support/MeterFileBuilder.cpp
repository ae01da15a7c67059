// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterFileBuilder.h"

#include "platform/SqlIdentifier.h"
#include "store/MeterSchema.h"

namespace lorvane::test {

MeterFileBuilder::MeterFileBuilder(const QString& path, double version)
    : m_db(std::make_unique<SqliteDatabase>(path, SqliteDatabase::Mode::Create))
{
    for (const TableLayout& table : MeterSchema(version).fileTables())
        m_db->executeScript(table.createSql());
    m_db->execute(QStringLiteral("INSERT INTO ID_Table (Version, Note) VALUES (?, ?)"),
                  {version, QStringLiteral("Written by a test")});
}

MeterFileBuilder& MeterFileBuilder::device(int typeId, const QString& typeName,
                                           const QString& hardwareName, const QVariant& hardwareId)
{
    return sql(QStringLiteral("INSERT INTO DeviceInformation (DeviceTypeID, DeviceType, Address, "
                              "HardwareName, HardwareID) VALUES (?, ?, '17', ?, ?)"),
               {typeId, typeName, hardwareName, hardwareId});
}

MeterFileBuilder& MeterFileBuilder::dataPoints(const QList<qint64>& ids)
{
    for (qint64 id : ids)
        sql(QStringLiteral("INSERT INTO DataPoints (DataID) VALUES (?)"), {id});
    return *this;
}

MeterFileBuilder& MeterFileBuilder::download(const QString& entry, const QString& logOption,
                                             const QVariant& firmwareInfo3)
{
    return sql(QStringLiteral("INSERT INTO AllLogs ([EntryDate/Time], LogOptionName, "
                              "FirmwareInfo3) VALUES (?, ?, ?)"),
               {entry, logOption, firmwareInfo3});
}

MeterFileBuilder& MeterFileBuilder::dayRow(const QString& masterTable, const QString& day,
                                           qint64 index, qint64 records, const QString& start,
                                           const QString& end)
{
    const bool hourly =
        masterTable.compare(QStringLiteral("AllHistoricalLogs"), Qt::CaseInsensitive) == 0 ||
        masterTable.compare(QStringLiteral("AllEnergyDemandLogs"), Qt::CaseInsensitive) == 0;
    const QString counts =
        hourly ? QStringLiteral("[Hour_0], [Recs_0]") : QStringLiteral("[HTable], [Recs]");
    return sql(QStringLiteral("INSERT INTO %1 ([Date/Time], [LogTablesIndex], %2, [Records], "
                              "[StartDate/Time], [EndDate/Time]) VALUES (?, ?, -1, ?, ?, ?, ?)")
                   .arg(SqlIdentifier::quote(masterTable), counts),
               {day, index, records, records, start, end});
}

MeterFileBuilder& MeterFileBuilder::sql(const QString& statement, const QVariantList& values)
{
    m_db->execute(statement, values);
    return *this;
}

} // namespace lorvane::test
