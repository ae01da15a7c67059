// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SqlStatement.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>
#include <memory>
#include <vector>

namespace SQLite {
class Database;
}

namespace lorvane {

/// An open SQLite database file: a meter database, the scratch database, the dictionary.
/// Opening checks that the file is a readable database at once, so a damaged or foreign file
/// fails here with a clear kind rather than at the first query.
class SqliteDatabase
{
public:
    enum class Mode
    {
        ReadOnly,  ///< never writes; a meter file that is only read is opened so
        ReadWrite, ///< the file must exist
        Create,    ///< created when missing
    };

    /// Opens `path`; throws StorageError (FileMissing, NotADatabase, ReadOnly or Engine).
    SqliteDatabase(const QString& path, Mode mode);
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    const QString& path() const { return m_path; }
    Mode mode() const { return m_mode; }

    SqlStatement prepare(const QString& sql);
    /// Runs one statement with bound values and no result rows.
    void execute(const QString& sql, const QVariantList& values = {});
    /// Runs several statements separated by semicolons, none with values.
    void executeScript(const QString& sql);
    /// First column of the first row, or an invalid QVariant when there is no row.
    QVariant scalar(const QString& sql, const QVariantList& values = {});
    /// The first row as column -> value, empty when there is no row.
    QVariantMap firstRow(const QString& sql, const QVariantList& values = {});
    /// True when the statement returns at least one row.
    bool hasRows(const QString& sql, const QVariantList& values = {});

    /// Table (or view) of that name exists, compared without regard to case.
    bool tableExists(const QString& table);
    /// Columns of a table in their order; empty when the table does not exist.
    QStringList columns(const QString& table);
    /// Runs "select {column} from {table} where 1=0": false when that fails for any reason.
    bool tableHasField(const QString& table, const QString& column);
    /// Every table name of the main schema, in name order.
    QStringList tables();

    /// Attaches another database file under `alias` for the length of one load; read-only
    /// unless `readOnly` is false, so that reading a meter file can never change it. Throws
    /// StorageError (FileMissing, NotADatabase ...) when the file cannot be read; the file is
    /// then not attached.
    void attach(const QString& path, const QString& alias, bool readOnly = true);
    void detach(const QString& alias);

    void beginTransaction();
    void commit();
    void rollback();

    qint64 lastInsertRowId() const;
    SQLite::Database& handle() { return *m_db; }

    /// Translates an engine exception into a StorageError about this file.
    [[noreturn]] void fail(const std::exception& e) const;

private:
    QString m_path;
    Mode m_mode;
    std::unique_ptr<SQLite::Database> m_db;
};

/// Opens `path` for one check and answers the question of `SqliteDatabase::tableHasField`;
/// false also when the file cannot be opened.
bool TableHasField(const QString& path, const QString& table, const QString& column);

} // namespace lorvane
