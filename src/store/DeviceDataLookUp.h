// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <optional>
#include <vector>

namespace lorvane {

class SqliteDatabase;

/// The dictionary's table `DeviceDataLookUp_3_1`, kept in memory for the whole run: for each
/// data point of the meter protocol, how its value is shown.
class DeviceDataLookUp
{
public:
    /// How a value is shown (`DataType`).
    enum DataType : qint32
    {
        PlainNumber = 0,     ///< the number as logged, in the settings' number format
        PowerFactorBand = 1, ///< a power factor band code, 0 to below 20
        EnergyRegister = 2,  ///< formatted by the meter's scaled formats
    };

    struct Entry
    {
        qint32 index = 0;     ///< `LookUpIndex`
        qint32 dataIndex = 0; ///< `DataIndex`: the `DataPointId`
        qint32 type = 0;      ///< `DataType`
    };

    /// Reads the table in `LookUpIndex` order. An empty table leaves the list empty. Throws
    /// StorageError when the table is missing or damaged; the list is then unchanged.
    void load(SqliteDatabase& dictionary);

    const std::vector<Entry>& entries() const { return m_entries; }
    bool isEmpty() const { return m_entries.empty(); }
    /// The entry of a data point, or nothing when the table does not list it.
    std::optional<Entry> find(qint32 dataId) const;

private:
    std::vector<Entry> m_entries;
};

} // namespace lorvane
