// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <optional>
#include <vector>

namespace lorvane {

class SqliteDatabase;

/// The dictionary's table `DeviceScaledFormats_3_1`, kept in memory for the whole run: which
/// row of a meter's `ScaledFormats` formats an energy register (the row's `Units` names the
/// unit's prefix, see `ScaledEnergyFormat`).
class DeviceScaledFormats
{
public:
    struct Entry
    {
        qint32 scaleIndex = 0; ///< `ScaleIndex`: the scale class
        qint32 dataIndex = 0;  ///< `DataIndex`: the `DataPointId`
        qint32 formatId = 0;   ///< `FormatID` of the meter's `ScaledFormats`
    };

    /// Reads the table in `ScaleIndex`, `DataIndex` order. An empty table leaves the list
    /// empty. Throws StorageError when the table is missing or damaged; the list is then
    /// unchanged.
    void load(SqliteDatabase& dictionary);

    const std::vector<Entry>& entries() const { return m_entries; }
    bool isEmpty() const { return m_entries.empty(); }
    /// The first entry of a data point, or nothing when the point has no scaled format.
    std::optional<Entry> find(qint32 dataId) const;

private:
    std::vector<Entry> m_entries;
};

} // namespace lorvane
