// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeviceDataLookUp.h"

#include "DictionaryTriples.h"

#include <algorithm>

namespace lorvane {

void DeviceDataLookUp::load(SqliteDatabase& dictionary)
{
    const auto rows = DictionaryTriples::read(
        dictionary, QStringLiteral("DeviceDataLookUp_3_1"),
        {QStringLiteral("LookUpIndex"), QStringLiteral("DataIndex"), QStringLiteral("DataType")});
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (const auto& [index, dataIndex, type] : rows)
        entries.push_back({index, dataIndex, type});
    m_entries = std::move(entries);
}

std::optional<DeviceDataLookUp::Entry> DeviceDataLookUp::find(qint32 dataId) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [dataId](const Entry& e) { return e.dataIndex == dataId; });
    if (found == m_entries.end())
        return std::nullopt;
    return *found;
}

} // namespace lorvane
