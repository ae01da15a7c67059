// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

namespace lorvane {

class SqliteDatabase;

/// The device types of the dictionary, indexed by their `ID` from 0 to the greatest one. A
/// meter's `DeviceTypeID` indexes this table; numbers the dictionary does not name keep the
/// name "UnKonw_{i}" and are marked unused.
class DeviceTypeTable
{
public:
    struct Entry
    {
        bool inUse = false;
        QString name;
    };

    /// Largest `ID` accepted; a greater one marks the dictionary as damaged rather than
    /// making a table of that size.
    static constexpr qint64 maximumId = 1000000;

    /// Reads table `Devices` (`ID`, `DeviceName`) of the dictionary in ID order. Returns false
    /// (the error flag) and leaves the table empty when the table is missing or empty, an ID
    /// is null, negative or above `maximumId`, or the engine fails.
    bool loadDeviceTypes(SqliteDatabase& dictionary);

    /// Number of elements: greatest ID + 1, or 0 before a successful load.
    int size() const { return static_cast<int>(m_entries.size()); }
    /// Element `id`; an unused element for a number outside the table.
    Entry entry(int id) const;

private:
    std::vector<Entry> m_entries;
};

} // namespace lorvane
