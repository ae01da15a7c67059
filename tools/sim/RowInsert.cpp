// SPDX-License-Identifier: GPL-3.0-or-later
#include "RowInsert.h"

#include "platform/SqlIdentifier.h"

#include <QStringList>

namespace lorvane::sim {

RowInsert& RowInsert::set(const QString& column, const QVariant& value)
{
    m_values.append({column, value});
    return *this;
}

void RowInsert::run(const SimMeter& meter) const
{
    const QStringList held = meter.schema.table(m_table).columnNames();
    if (held.isEmpty())
        return;
    QStringList columns;
    QStringList marks;
    QVariantList values;
    for (const auto& [column, value] : m_values) {
        if (!held.contains(column, Qt::CaseInsensitive))
            continue;
        columns << SqlIdentifier::quote(column);
        marks << QStringLiteral("?");
        values << value;
    }
    meter.db->execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                          .arg(SqlIdentifier::quote(m_table), columns.join(QStringLiteral(", ")),
                               marks.join(QStringLiteral(", "))),
                      values);
}

void RowInsert::runPrepared(SqlStatement& insert, const TableLayout& layout) const
{
    insert.reset();
    int position = 0;
    for (const ColumnLayout& column : layout.columns()) {
        ++position;
        QVariant value;
        for (const auto& [name, v] : m_values) {
            if (name.compare(column.name, Qt::CaseInsensitive) == 0)
                value = v;
        }
        insert.bind(position, value);
    }
    insert.run();
}

} // namespace lorvane::sim
