// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DeviceRecord.h"
#include "query/engine/LogFileEntry.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace lorvane {

/// The open meters (`DeviceList`): at most `maxDevices()` entries, meter 1 at index 0, with the
/// state of the two meter combo boxes and of the Device Master Log that the window shows.
class MeterTable
{
public:
    /// What opening a list of meter files did: the table and the messages the user was shown.
    struct Opened;

    /// `configuredDevices` is the setting `MaxDeviceLogNumber`: 1 or 2 are taken as they are,
    /// any other number gives 2.
    explicit MeterTable(int configuredDevices = 2);

    /// Opens `paths` as meters 1, 2 ... (at most `maxDevices`) through AddFileToSystem, with
    /// the scratch database at `scratchPath`. A file that is refused leaves its entry unused
    /// and its message in the result. Throws Fault Version for the two version faults that
    /// end the program.
    static Opened open(const QStringList& paths, const QString& scratchPath,
                       int configuredDevices = 2);

    int maxDevices() const { return static_cast<int>(m_devices.size()); }
    /// Takes a new `MaxDeviceLogNumber` (as the constructor does); going down to 1 closes
    /// meter 2. True when a meter was closed.
    bool setConfiguredDevices(int configuredDevices);
    /// Entry `meterIndex` (0 for meter 1); throws std::out_of_range outside the table.
    const DeviceRecord& device(int meterIndex) const { return m_devices.at(meterIndex); }
    const QList<DeviceRecord>& devices() const { return m_devices; }
    /// Replaces entry `meterIndex` as a whole and fills its combo box: "No Meter" and the
    /// meter's `HardwareName`, the latter selected.
    void setDevice(int meterIndex, const DeviceRecord& record);
    /// Chooses the inputs, relays and demand items of meter `meterIndex`.
    void setItems(int meterIndex, const MeterItems& items) { m_devices[meterIndex].items = items; }

    /// Items of the meter's combo box: "No Meter", then `HardwareName` once a meter was opened.
    QStringList comboItems(int meterIndex) const;
    /// Selected combo item: 0 "No Meter", 1 the meter; -1 when the box is empty.
    int comboSelection(int meterIndex) const { return m_combo.at(meterIndex); }
    /// Picks an item of the combo box: 1 makes the entry used, 0 unused and drops its user
    /// item labels. An item the box does not hold is ignored (returns false).
    bool pickComboItem(int meterIndex, int item);
    /// Some combo box has its meter selected.
    bool anyMeterSelected() const;

    /// Number of used entries.
    int usedCount() const;
    /// The `LogFileEntry` of every used meter, in table order, `deviceIndex` its position.
    QList<LogFileEntry> usedFiles() const;
    /// "None" when both meters are used and their `DeviceType` texts differ; else the common
    /// (or the only) `DeviceType`; empty with no meter used.
    QString selectedDeviceType() const;
    /// A split-log meter is among the used entries.
    bool splitLogMeterUsed() const;
    /// The entry (from 0) of the first used split-log meter; -1 when none is used.
    int splitLogMeterIndex() const;

    /// False while a Device Master Log is meter 1: the meter 2 controls are hidden then.
    bool meter2Selectable() const { return m_meter2Selectable; }
    void setMeter2Selectable(bool selectable) { m_meter2Selectable = selectable; }
    /// Path of the current Device Master Log (`.dml`), empty when none is open.
    const QString& deviceMasterLog() const { return m_deviceMasterLog; }
    void setDeviceMasterLog(const QString& path) { m_deviceMasterLog = path; }
    /// The log database last chosen from the Device Master Log window; "Select Log" opens it
    /// again. Empty until one was chosen.
    const QString& storedDevicePath() const { return m_storedDevicePath; }
    void setStoredDevicePath(const QString& path) { m_storedDevicePath = path; }
    /// The folder the file dialog starts in next time.
    const QString& lastFolder() const { return m_lastFolder; }
    void setLastFolder(const QString& folder) { m_lastFolder = folder; }

private:
    QList<DeviceRecord> m_devices;
    QList<int> m_combo;
    bool m_meter2Selectable = true;
    QString m_deviceMasterLog;
    QString m_storedDevicePath;
    QString m_lastFolder;
};

struct MeterTable::Opened
{
    MeterTable table;
    QStringList messages;
};

} // namespace lorvane
