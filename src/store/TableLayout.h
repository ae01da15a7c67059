// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace lorvane {

/// The storage type of a column as the meter schema names it. Each maps onto one SQLite type:
/// the integer kinds and Bit (-1/0) onto INTEGER, Double and Single onto REAL, Date (the
/// 19-character `YYYY-MM-DD HH:MM:SS` text), Text and Memo onto TEXT.
enum class ColumnType
{
    Long,
    Integer,
    Short,
    Byte,
    Bit,
    Double,
    Single,
    Date,
    Text,
    Memo
};

struct ColumnLayout
{
    QString name;
    ColumnType type = ColumnType::Long;
    QString defaultValue; ///< SQL literal of the column default, empty for none
};

/// A named index; created in a file as `{table}_{name}` because index names are file-wide.
struct IndexLayout
{
    QString name;
    QStringList columns;
    bool unique = false;
};

/// One table: name, columns in their order, indexes.
class TableLayout
{
public:
    TableLayout() = default;
    explicit TableLayout(QString name);

    TableLayout& add(const QString& column, ColumnType type, const QString& defaultValue = {});
    TableLayout& index(const QString& name, const QStringList& columns, bool unique);
    /// Same columns and indexes under another table name.
    TableLayout renamed(const QString& name) const;
    /// The layout without the named columns; its indexes stay.
    TableLayout without(const QStringList& columns) const;

    const QString& name() const { return m_name; }
    const QList<ColumnLayout>& columns() const { return m_columns; }
    const QList<IndexLayout>& indexes() const { return m_indexes; }
    QStringList columnNames() const;

    /// "CREATE TABLE [name] ([col] TYPE ...)" followed by one CREATE INDEX per index,
    /// separated by semicolons.
    QString createSql() const;
    /// "INSERT INTO [name] ([c1], ...) VALUES (?, ...)" over all columns in order.
    QString insertSql() const;

    static QString sqlType(ColumnType type);

private:
    QString m_name;
    QList<ColumnLayout> m_columns;
    QList<IndexLayout> m_indexes;
};

} // namespace lorvane
