// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterTable.h"

#include "AddFileToSystem.h"
#include "DataPointSelection.h"
#include "SplitLogMeter.h"
#include "TopQueryBuffer.h"
#include "platform/UserText.h"

#include <QFileInfo>

namespace lorvane {

MeterTable::MeterTable(int configuredDevices)
{
    setConfiguredDevices(configuredDevices);
}

bool MeterTable::setConfiguredDevices(int configuredDevices)
{
    const int count = (configuredDevices == 1 || configuredDevices == 2) ? configuredDevices : 2;
    bool closed = false;
    for (qsizetype i = count; i < m_devices.size(); ++i)
        closed = closed || !m_devices.at(i).filePath.isEmpty();
    m_devices.resize(count);
    m_combo.resize(count, 0);
    return closed;
}

MeterTable::Opened MeterTable::open(const QStringList& paths, const QString& scratchPath,
                                    int configuredDevices)
{
    Opened opened{MeterTable(configuredDevices), {}};
    // A table of its own: the caller has no window whose buffer or points would need clearing.
    TopQueryBuffer buffer;
    DataPointSelection points;
    AddFileToSystem add(opened.table, buffer, points, scratchPath);
    const int count = std::min<int>(static_cast<int>(paths.size()), opened.table.maxDevices());
    for (int i = 0; i < count; ++i)
        opened.messages << add.run(paths.at(i), QFileInfo(paths.at(i)).fileName(), i).messages;
    return opened;
}

void MeterTable::setDevice(int meterIndex, const DeviceRecord& record)
{
    m_devices[meterIndex] = record;
    m_combo[meterIndex] = 1;
}

QStringList MeterTable::comboItems(int meterIndex) const
{
    QStringList items{userText("301000", "No Meter")};
    const DeviceRecord& record = m_devices.at(meterIndex);
    if (!record.filePath.isEmpty())
        items << record.hardwareName;
    return items;
}

bool MeterTable::pickComboItem(int meterIndex, int item)
{
    if (meterIndex < 0 || meterIndex >= maxDevices() || item < 0 ||
        item >= comboItems(meterIndex).size())
        return false;
    DeviceRecord& record = m_devices[meterIndex];
    record.used = item == 1;
    if (item == 0)
        record.userItemLabels.clear();
    m_combo[meterIndex] = item;
    return true;
}

bool MeterTable::anyMeterSelected() const
{
    return std::any_of(m_combo.begin(), m_combo.end(), [](int item) { return item > 0; });
}

int MeterTable::usedCount() const
{
    return static_cast<int>(std::count_if(m_devices.begin(), m_devices.end(),
                                          [](const DeviceRecord& d) { return d.used; }));
}

QList<LogFileEntry> MeterTable::usedFiles() const
{
    QList<LogFileEntry> files;
    for (const DeviceRecord& d : m_devices) {
        if (!d.used)
            continue;
        LogFileEntry entry;
        entry.dbPath = d.filePath;
        entry.deviceTypeId = d.deviceTypeId;
        entry.hardwareName = d.hardwareName;
        entry.used = true;
        entry.items = d.items;
        entry.deviceIndex = static_cast<qint32>(files.size());
        files << entry;
    }
    return files;
}

QString MeterTable::selectedDeviceType() const
{
    QString type;
    bool found = false;
    for (const DeviceRecord& d : m_devices) {
        if (!d.used)
            continue;
        if (found && d.deviceType != type)
            return userText("301001", "None");
        type = d.deviceType;
        found = true;
    }
    return type;
}

bool MeterTable::splitLogMeterUsed() const
{
    return splitLogMeterIndex() >= 0;
}

int MeterTable::splitLogMeterIndex() const
{
    for (int i = 0; i < int(m_devices.size()); ++i) {
        const DeviceRecord& d = m_devices.at(i);
        if (d.used && d.deviceTypeId == SplitLogMeter::deviceTypeId)
            return i;
    }
    return -1;
}

} // namespace lorvane
