// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicReader.h"

#include "RelayLogicBuilder.h"
#include "platform/Fault.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"

namespace lorvane {

RelayLogicTree RelayLogicReader::read(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                      const QVariantMap& keys)
{
    const qint64 device = keys.value(QStringLiteral("DeviceIndex")).toLongLong();
    const QVariantMap meter = scratch.firstRow(
        QStringLiteral("SELECT [DeviceTypeID] FROM %1 WHERE [DeviceIndex] = ?")
            .arg(SqlIdentifier::quote(numbers.table(QStringLiteral("LogDevices_")))),
        {device});
    if (meter.isEmpty())
        throw Fault(Fault::Kind::Other, RelayLogicBuilder::missingSetting(),
                    QStringLiteral("ShowRelayLogic"), QString());
    const QVariantMap record = scratch.firstRow(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [GIndex] = ? LIMIT 1")
            .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("RelayLogA_")))),
        {device, keys.value(QStringLiteral("GIndex")).toLongLong()});
    QVariantMap setting;
    if (!record.isEmpty()) {
        setting = scratch.firstRow(
            QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] = ? AND [Index] = ? AND "
                           "[ModuleIndex] = ? AND [RelayIndex] = ? LIMIT 1")
                .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("RelayLogDataItem_")))),
            {device, record.value(QStringLiteral("Index")),
             record.value(QStringLiteral("ModuleIndex")),
             record.value(QStringLiteral("RelayIndex"))});
    }
    return RelayLogicBuilder::build(meter.value(QStringLiteral("DeviceTypeID")).toInt(), setting,
                                    record);
}

} // namespace lorvane
