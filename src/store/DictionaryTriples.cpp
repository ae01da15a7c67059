// SPDX-License-Identifier: GPL-3.0-or-later
#include "DictionaryTriples.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"

#include <cmath>
#include <limits>

namespace lorvane {

std::vector<DictionaryTriples::Triple>
DictionaryTriples::read(SqliteDatabase& dictionary, const QString& table,
                        const std::array<QString, 3>& columns)
{
    const QString sql = QStringLiteral("SELECT %1, %2, %3 FROM %4 ORDER BY %1, %2;")
                            .arg(SqlIdentifier::quote(columns[0]), SqlIdentifier::quote(columns[1]),
                                 SqlIdentifier::quote(columns[2]), SqlIdentifier::quote(table));
    SqlStatement statement = dictionary.prepare(sql);
    std::vector<Triple> rows;
    while (statement.next()) {
        Triple row{};
        for (int c = 0; c < 3; ++c) {
            if (statement.isNull(c))
                continue;
            // Through a double so that a REAL such as 2.5 is caught instead of rounded.
            bool number = false;
            const double value = statement.value(c).toDouble(&number);
            if (!number || std::floor(value) != value ||
                value < std::numeric_limits<qint32>::min() ||
                value > std::numeric_limits<qint32>::max())
                throw StorageError(
                    StorageError::Kind::Engine, dictionary.path(),
                    QStringLiteral("%1.%2 holds \"%3\", not a 32-bit whole number")
                        .arg(table, columns[static_cast<std::size_t>(c)], statement.text(c)));
            row[static_cast<std::size_t>(c)] = static_cast<qint32>(value);
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace lorvane
