// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <optional>
#include <vector>

namespace lorvane {

class SqliteDatabase;

/// The dictionary's table `DeviceScaledFormats_3_1`, kept in memory for the whole run: which
/// row of a meter's `ScaledFormats` formats an energy register, and the register's scale
/// class, which names the prefix of the column's unit (1 "k"; 2 and 3 "M").
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
    /// Prefix of the unit of a column with scale class `scaleIndex`: "M" for 2 and 3, "k"
    /// for any other class.
    static const char* unitPrefix(qint32 scaleIndex);

private:
    std::vector<Entry> m_entries;
};

} // namespace lorvane
