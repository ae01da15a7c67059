// SPDX-License-Identifier: GPL-3.0-or-later
#include "TableLayout.h"

#include "platform/SqlIdentifier.h"

namespace lorvane {

TableLayout::TableLayout(QString name) : m_name(std::move(name))
{
}

TableLayout& TableLayout::add(const QString& column, ColumnType type, const QString& defaultValue)
{
    m_columns.append({column, type, defaultValue});
    return *this;
}

TableLayout& TableLayout::index(const QString& name, const QStringList& columns, bool unique)
{
    m_indexes.append({name, columns, unique});
    return *this;
}

TableLayout TableLayout::without(const QStringList& columns) const
{
    TableLayout reduced(m_name);
    for (const ColumnLayout& column : m_columns) {
        if (!columns.contains(column.name))
            reduced.add(column.name, column.type, column.defaultValue);
    }
    for (const IndexLayout& index : m_indexes)
        reduced.index(index.name, index.columns, index.unique);
    return reduced;
}

TableLayout TableLayout::renamed(const QString& name) const
{
    TableLayout copy = *this;
    copy.m_name = name;
    return copy;
}

QStringList TableLayout::columnNames() const
{
    QStringList names;
    for (const ColumnLayout& column : m_columns)
        names << column.name;
    return names;
}

QString TableLayout::sqlType(ColumnType type)
{
    switch (type) {
    case ColumnType::Long:
    case ColumnType::Integer:
    case ColumnType::Short:
    case ColumnType::Byte:
    case ColumnType::Bit:
        return QStringLiteral("INTEGER");
    case ColumnType::Double:
    case ColumnType::Single:
        return QStringLiteral("REAL");
    case ColumnType::Date:
    case ColumnType::Text:
    case ColumnType::Memo:
        return QStringLiteral("TEXT");
    }
    return QStringLiteral("TEXT");
}

QString TableLayout::createSql() const
{
    QStringList definitions;
    for (const ColumnLayout& column : m_columns) {
        QString definition =
            SqlIdentifier::quote(column.name) + QLatin1Char(' ') + sqlType(column.type);
        if (!column.defaultValue.isEmpty())
            definition += QStringLiteral(" DEFAULT ") + column.defaultValue;
        definitions << definition;
    }
    QString sql = QStringLiteral("CREATE TABLE %1 (%2)")
                      .arg(SqlIdentifier::quote(m_name), definitions.join(QStringLiteral(", ")));
    for (const IndexLayout& index : m_indexes) {
        QStringList quoted;
        for (const QString& column : index.columns)
            quoted << SqlIdentifier::quote(column);
        sql += QStringLiteral(";\nCREATE %1INDEX %2 ON %3 (%4)")
                   .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(),
                        SqlIdentifier::quote(m_name + QLatin1Char('_') + index.name),
                        SqlIdentifier::quote(m_name), quoted.join(QStringLiteral(", ")));
    }
    return sql;
}

QString TableLayout::insertSql() const
{
    QStringList quoted;
    QStringList marks;
    for (const ColumnLayout& column : m_columns) {
        quoted << SqlIdentifier::quote(column.name);
        marks << QStringLiteral("?");
    }
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(SqlIdentifier::quote(m_name), quoted.join(QStringLiteral(", ")),
             marks.join(QStringLiteral(", ")));
}

} // namespace lorvane
