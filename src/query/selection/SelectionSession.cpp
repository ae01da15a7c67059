// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelectionSession.h"

#include "LogTree.h"
#include "platform/UserText.h"
#include "store/DeviceTypeTable.h"
#include "store/MeterDatabase.h"
#include "store/SchemaCatalog.h"

#include <QDir>
#include <QFileInfo>

namespace lorvane {

SelectionSession::SelectionSession(int maxDevices, const QString& scratchPath)
    : m_meters(maxDevices)
{
    m_addFile = std::make_unique<AddFileToSystem>(m_meters, m_buffer, m_points, scratchPath);
    m_dispatch = std::make_unique<ViewDispatch>(m_meters, m_points, m_time, m_buffer, *m_addFile);
}

SelectionSession::NewestFile SelectionSession::newestMeterFile(const QString& folder)
{
    NewestFile found;
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) {
        found.refusal = userText("310097", "Invalid path") + QLatin1Char('\n') +
                        userText("310098", "Please start Tessera Ext to resolve error") +
                        QStringLiteral(": ") + folder;
        return found;
    }
    const QFileInfoList files = QDir(folder).entryInfoList({QStringLiteral("*.DB")}, QDir::Files,
                                                           QDir::Name | QDir::IgnoreCase);
    const QFileInfo* newest = nullptr;
    for (const QFileInfo& file : files) {
        // Strictly later: of files written at the same moment the first one listed wins.
        if (!newest || file.lastModified() > newest->lastModified())
            newest = &file;
    }
    if (newest)
        found.path = newest->absoluteFilePath();
    return found;
}

QList<SelectionSession::TreeNode> SelectionSession::tree(const DeviceTypeTable& deviceTypes) const
{
    const QString root = QStringLiteral("ROOT");
    QList<TreeNode> nodes{{root, QString(), userText("310100", "All Devices"), QString()}};
    QStringList typeKeys;
    for (int id = 0; id < deviceTypes.size(); ++id) {
        const DeviceTypeTable::Entry type = deviceTypes.entry(id);
        if (!type.inUse)
            continue;
        typeKeys << QStringLiteral("DevID#_%1").arg(id);
        nodes.append({typeKeys.last(), root, type.name, QString()});
    }

    const QStringList itemLabels = SchemaCatalog::logDisplayNames();
    for (int i = 1; i <= m_meters.maxDevices(); ++i) {
        const DeviceRecord& device = m_meters.device(i - 1);
        if (device.filePath.isEmpty())
            continue;
        const QString typeKey = QStringLiteral("DevID#_%1").arg(device.deviceTypeId);
        // A type the dictionary does not know gets its node from the meter's own text.
        if (!typeKeys.contains(typeKey)) {
            typeKeys << typeKey;
            nodes.append({typeKey, root, device.deviceType, QString()});
        }
        const QString meterKey = QStringLiteral("Device_%1").arg(i);
        nodes.append({meterKey, typeKey, device.fileName, device.filePath});

        QList<LogTreeEntry> logs;
        try {
            MeterDatabase meter(device.filePath, QStringLiteral("DoReFresh"));
            logs = LogTree::read(meter);
        } catch (const std::exception&) {
            // A meter that no longer opens keeps its node without items.
            continue;
        }
        for (int n = 1; n < itemLabels.size(); ++n) {
            QString text = itemLabels.at(n);
            if (n == 1)
                text += QStringLiteral(" = ") + device.hardwareName + QStringLiteral(" (") +
                        device.hardwareId + QLatin1Char(')');
            else if (n == 2)
                text += QStringLiteral(" = ") + device.filePath;
            const QString itemKey = QStringLiteral("DeItem_%1|D_%2").arg(n).arg(i);
            nodes.append({itemKey, meterKey, text, QString()});
            for (const LogTreeEntry& log : logs) {
                if (log.logKind == n)
                    nodes.append({QStringLiteral("LogsID_%1|D_%2|Logs_1").arg(n).arg(i), itemKey,
                                  log.text(), QString()});
            }
        }
    }
    return nodes;
}

bool SelectionSession::setMeterItems(int meterIndex, const MeterItems& items)
{
    if (meterIndex < 0 || meterIndex >= m_meters.maxDevices() ||
        !m_meters.device(meterIndex).used || items.demandIds.size() > MeterItems::demandCount)
        return false;
    m_meters.setItems(meterIndex, items);
    m_buffer.ClearTopQueryBuffer(true);
    return true;
}

} // namespace lorvane
