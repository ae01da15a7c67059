// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeviceTypeTable.h"

#include "platform/SqliteDatabase.h"

#include <stdexcept>
#include <utility>

namespace lorvane {

namespace {

QString unknownName(qint64 id)
{
    return QStringLiteral("UnKonw_") + QString::number(id);
}

} // namespace

bool DeviceTypeTable::loadDeviceTypes(SqliteDatabase& dictionary)
{
    m_entries.clear();
    std::vector<std::pair<qint64, QString>> rows;
    try {
        SqlStatement statement = dictionary.prepare(
            QStringLiteral("SELECT [ID], [DeviceName] FROM [Devices] ORDER BY [ID] ASC;"));
        while (statement.next()) {
            if (statement.isNull(0))
                return false;
            const qint64 id = statement.integer(0);
            if (id < 0 || id > maximumId)
                return false;
            rows.emplace_back(id, statement.isNull(1) ? QString() : statement.text(1));
        }
    } catch (const std::exception&) {
        return false;
    }
    if (rows.empty())
        return false;

    // The greatest ID is the last row's, as the rows come in ID order.
    const qint64 greatest = rows.back().first;
    std::vector<Entry> entries(static_cast<std::size_t>(greatest + 1));
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i].name = unknownName(static_cast<qint64>(i));
    for (auto& [id, name] : rows)
        entries[static_cast<std::size_t>(id)] = Entry{true, std::move(name)};
    m_entries = std::move(entries);
    return true;
}

DeviceTypeTable::Entry DeviceTypeTable::entry(int id) const
{
    if (id < 0 || id >= size())
        return Entry{false, unknownName(id)};
    return m_entries[static_cast<std::size_t>(id)];
}

} // namespace lorvane
