// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

namespace SQLite {
class Statement;
}

namespace lorvane {

class SqliteDatabase;

/// One prepared statement. Values are bound by position (1-based as in SQL text `?`), the
/// statement is stepped row by row and may be reset and run again with new values, which is
/// how bulk inserts stay fast. Engine errors are thrown as StorageError with the file's path.
class SqlStatement
{
public:
    SqlStatement(SqliteDatabase& db, const QString& sql);
    ~SqlStatement();
    SqlStatement(SqlStatement&&) noexcept;
    SqlStatement& operator=(SqlStatement&&) noexcept;

    /// Binds a value: null, integer, boolean (as -1/0), real, text or byte array.
    SqlStatement& bind(int position, const QVariant& value);
    SqlStatement& bind(int position, qint64 value);
    SqlStatement& bind(int position, double value);
    SqlStatement& bind(int position, const QString& value);
    /// Binds every value in order, starting at position 1.
    SqlStatement& bindAll(const QVariantList& values);

    /// Advances to the next row; false when there is none.
    bool next();
    /// Runs a statement that returns no rows (insert, update, DDL).
    void run();
    /// Makes the statement ready to run again; bound values stay until rebound.
    void reset();

    int columnCount() const;
    QString columnName(int column) const;
    /// Position of a column by name, compared without regard to case; -1 when absent.
    int columnIndex(const QString& name) const;

    bool isNull(int column) const;
    QVariant value(int column) const;
    /// Value of a column named in any case; an invalid QVariant when the column is absent.
    QVariant value(const QString& name) const;
    qint64 integer(int column) const;
    double real(int column) const;
    QString text(int column) const;
    /// The text of a column as the engine holds it (UTF-8), without a copy: valid until the
    /// statement steps or resets. Empty for NULL. For reads of many rows that look at a text
    /// without keeping it.
    QByteArrayView bytes(int column) const;

private:
    [[noreturn]] void fail(const std::exception& e) const;

    SqliteDatabase* m_db;
    std::unique_ptr<SQLite::Statement> m_statement;
};

} // namespace lorvane
