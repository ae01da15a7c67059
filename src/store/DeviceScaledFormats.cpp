// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeviceScaledFormats.h"

#include "DictionaryTriples.h"

#include <algorithm>

namespace lorvane {

void DeviceScaledFormats::load(SqliteDatabase& dictionary)
{
    const auto rows = DictionaryTriples::read(
        dictionary, QStringLiteral("DeviceScaledFormats_3_1"),
        {QStringLiteral("ScaleIndex"), QStringLiteral("DataIndex"), QStringLiteral("FormatID")});
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (const auto& [scaleIndex, dataIndex, formatId] : rows)
        entries.push_back({scaleIndex, dataIndex, formatId});
    m_entries = std::move(entries);
}

std::optional<DeviceScaledFormats::Entry> DeviceScaledFormats::find(qint32 dataId) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [dataId](const Entry& e) { return e.dataIndex == dataId; });
    if (found == m_entries.end())
        return std::nullopt;
    return *found;
}

} // namespace lorvane
