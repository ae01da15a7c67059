// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataPointLabel.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"

#include <optional>

namespace lorvane {

namespace {

/// A whole-id name table and the range of ids it names.
struct GlobalNameTable
{
    qint32 first;
    qint32 last;
    const char* table;
    const char* column;
};

constexpr GlobalNameTable globalNameTables[] = {
    {50000, 199999, "Namelist", "Label"},
    {200000, 300000, "DeviceModbusMap", "Description"},
    {300001, 349999, "BrinMF20", "Description"},
};

/// The first column of the row that `sql` finds for `key`: a NULL gives the empty text, no
/// row or no table gives nothing.
std::optional<QString> nameOf(SqliteDatabase& dictionary, const QString& table, const QString& sql,
                              qint64 key)
{
    if (!dictionary.tableExists(table))
        return std::nullopt;
    SqlStatement statement = dictionary.prepare(sql);
    statement.bind(1, key);
    if (!statement.next())
        return std::nullopt;
    return statement.isNull(0) ? QString() : statement.text(0);
}

} // namespace

QString DataPointLabel::notAvailable(qint32 id)
{
    return QStringLiteral("N/A ") + QString::number(id);
}

QString DataPointLabel::text(SqliteDatabase& dictionary, qint32 id)
{
    if (head(id) < 1)
        return QString::number(id);

    for (const GlobalNameTable& names : globalNameTables) {
        if (id < names.first || id > names.last)
            continue;
        const QString table = QLatin1String(names.table);
        const std::optional<QString> name =
            nameOf(dictionary, table,
                   QStringLiteral("SELECT %1 FROM %2 WHERE [GlobalID] = ?;")
                       .arg(SqlIdentifier::quote(QLatin1String(names.column)),
                            SqlIdentifier::quote(table)),
                   id);
        return name.value_or(notAvailable(id));
    }

    // Two-level index. The item table's name is made from the head row's number only, so no
    // text of the dictionary ever becomes part of a statement.
    const QString types = QStringLiteral("Types");
    if (!dictionary.tableExists(types))
        return notAvailable(id);
    SqlStatement headRow = dictionary.prepare(
        QStringLiteral("SELECT [ReferenceID], [Name] FROM [Types] WHERE [ID] = ?;"));
    headRow.bind(1, qint64(head(id)));
    if (!headRow.next() || headRow.isNull(0))
        return notAvailable(id);
    const qint64 reference = headRow.integer(0);
    const QString headName = headRow.isNull(1) ? QString() : headRow.text(1);

    const QString itemTable = QStringLiteral("Type_") + QString::number(reference);
    const std::optional<QString> itemName =
        nameOf(dictionary, itemTable,
               QStringLiteral("SELECT [Name] FROM %1 WHERE [ID] = ?;")
                   .arg(SqlIdentifier::quote(itemTable)),
               item(id));
    if (!itemName)
        return notAvailable(id);
    return userTextByName(headName) + u' ' + userTextByName(*itemName);
}

} // namespace lorvane
