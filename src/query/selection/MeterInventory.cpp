// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterInventory.h"

#include "platform/Fault.h"
#include "platform/SqlIdentifier.h"
#include "store/MeterDatabase.h"
#include "store/MeterMessages.h"
#include "store/SchemaCatalog.h"

namespace lorvane {

namespace {

const QString inventoryStep = QStringLiteral("LogInventory");

bool hasDataId(SqliteDatabase& db, qint64 id)
{
    return db.hasRows(QStringLiteral("select dataid from datapoints where dataid = ?"), {id});
}

/// The master tables that take part in the inventory's union, with the kind each reports.
/// A table the file lacks simply reports nothing, as an empty one would.
void addMasterKinds(SqliteDatabase& db, std::array<bool, logAvailableCount>& available)
{
    QStringList parts;
    for (LogKind kind :
         {LogKind::Snapshots, LogKind::Demand, LogKind::Limits, LogKind::Inputs, LogKind::Relays,
          LogKind::Waveform, LogKind::PowerQuality, LogKind::SystemEvent}) {
        const QString table = SchemaCatalog::masterTable(static_cast<int>(kind));
        if (db.tableExists(table)) {
            parts << QStringLiteral("select %1 from %2")
                         .arg(static_cast<int>(kind))
                         .arg(SqlIdentifier::quote(table));
        }
    }
    if (parts.isEmpty())
        return;
    SqlStatement union_ = db.prepare(parts.join(QStringLiteral(" union ")));
    while (union_.next()) {
        const qint64 kind = union_.integer(0);
        if (kind >= 0 && kind < logAvailableCount)
            available[static_cast<size_t>(kind)] = true;
    }
}

bool flickerAvailable(SqliteDatabase& db)
{
    // The flicker range of data ids starts at 27400; the ids are whole numbers, so the
    // division is an integer one even when a writer stored them as reals.
    return db.hasRows(QStringLiteral("select logoptionname from alllogs where logoptionname is "
                                     "not null and logoptionname like '%Flicker%'")) &&
           db.hasRows(QStringLiteral(
               "select dataid from datapoints where cast(dataid as integer) / 27400 > 0"));
}

/// Billing data ids by device type; an empty list for types without billing.
QList<qint64> billingIds(qint32 deviceTypeId)
{
    switch (deviceTypeId) {
    case 0:
        return {20825};
    case 3:
    case 5:
        return {26005};
    case 4:
        return {202006, 202010};
    default:
        return {};
    }
}

bool complianceAvailable(SqliteDatabase& db)
{
    SqlStatement count = db.prepare(QStringLiteral(
        "select count(*) from (select dataid from datapoints where dataid = 30001 or dataid = "
        "30002 or dataid = 30003 or dataid = 30076 or dataid = 30077 or dataid = 30078 or "
        "dataid = 30079 or dataid = 30080 or dataid = 30082)"));
    if (!count.next() || count.integer(0) != 9)
        return false;
    return db.tableExists(QStringLiteral("allpqtestlogs")) &&
           db.hasRows(QStringLiteral("select 1 from allpqtestlogs "));
}

qint32 toInt32(const QVariant& value, qint32 fallback)
{
    bool ok = false;
    const qint64 number = value.toString().trimmed().toLongLong(&ok);
    return ok ? static_cast<qint32>(number) : fallback;
}

} // namespace

std::array<bool, logAvailableCount> MeterInventory::logAvailable(MeterDatabase& meter,
                                                                 qint32 deviceTypeId)
{
    return meter.guarded(inventoryStep, [&] {
        SqliteDatabase& db = meter.db();
        std::array<bool, logAvailableCount> available{};
        addMasterKinds(db, available);
        available[static_cast<size_t>(LogKind::Flicker)] = flickerAvailable(db);

        const QList<qint64> billing = billingIds(deviceTypeId);
        if (billing.isEmpty())
            return available;
        for (qint64 id : billing) {
            if (hasDataId(db, id)) {
                available[static_cast<size_t>(LogKind::Billing)] = true;
                break;
            }
        }
        available[static_cast<size_t>(LogKind::Compliance)] = complianceAvailable(db);
        return available;
    });
}

DeviceRecord MeterInventory::read(MeterDatabase& meter, int meterIndex)
{
    SqliteDatabase& db = meter.db();
    DeviceRecord record = meter.guarded(QStringLiteral("DeviceInformation"), [&] {
        SqlStatement row = db.prepare(QStringLiteral("SELECT * FROM [DeviceInformation]"));
        if (!row.next()) {
            throw Fault(
                Fault::Kind::Damaged,
                MeterMessages::damaged(QStringLiteral("DeviceInformation"), meter.fileName()),
                QStringLiteral("DeviceInformation"), meter.path());
        }
        DeviceRecord r;
        r.used = true;
        r.status = QStringLiteral("OK");
        r.deviceTypeId = toInt32(row.value(QStringLiteral("DeviceTypeID")), 0);
        r.deviceType = row.value(QStringLiteral("DeviceType")).toString();
        r.address = toInt32(row.value(QStringLiteral("Address")), 0);
        r.hardwareName = row.value(QStringLiteral("HardwareName")).toString();
        const QVariant hardwareId = row.value(QStringLiteral("HardwareID"));
        r.hardwareId = hardwareId.isNull() ? QStringLiteral("N/A") : hardwareId.toString();
        r.fileName = meter.fileName();
        r.filePath = meter.path();
        return r;
    });

    record.logAvailable = logAvailable(meter, record.deviceTypeId);

    meter.guarded(QStringLiteral("UserItemLabels"), [&] {
        if (meterIndex != 0 || meter.version() < 9.1 - 1e-9 ||
            !db.tableExists(QStringLiteral("User_Defined_Item_Labels")))
            return;
        SqlStatement indexes =
            db.prepare(QStringLiteral("SELECT DISTINCT Item_Index From User_Defined_Item_Labels "
                                      "ORDER BY Item_Index"));
        SqlStatement latest = db.prepare(
            QStringLiteral("SELECT label From User_Defined_Item_Labels Where item_index = ? "
                           "ORDER BY profileindex DESC LIMIT 1"));
        while (indexes.next()) {
            const qint64 index = indexes.integer(0);
            latest.bind(1, index);
            if (latest.next())
                record.userItemLabels.append({index, latest.text(0)});
            latest.reset();
        }
    });

    if (record.hasLog(LogKind::Compliance))
        record.hasNominalVoltage =
            db.tableHasField(QStringLiteral("allpqtestlogs"), QStringLiteral("NominalVoltage"));

    meter.guarded(QStringLiteral("KGate"), [&] {
        record.kGate = -1;
        if (db.tableHasField(QStringLiteral("DeviceInformation"), QStringLiteral("KGate"))) {
            const QVariant kGate = db.scalar(QStringLiteral("select KGate from DeviceInformation"));
            if (!kGate.isNull() && kGate.isValid())
                record.kGate = toInt32(kGate, -1);
        }
        // The firmware text matters only to meters whose gate count is known.
        if (record.kGate >= 1) {
            const QVariant firmware =
                db.scalar(QStringLiteral("select firmwareinfo3 from AllLogs"));
            if (!firmware.isNull() && firmware.isValid())
                record.firmwareInfo3 = firmware.toString();
        }
    });
    return record;
}

} // namespace lorvane
