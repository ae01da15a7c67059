// SPDX-License-Identifier: GPL-3.0-or-later
#include "SqliteDatabase.h"

#include "SqlIdentifier.h"
#include "StorageError.h"

#include <QFileInfo>
#include <QUrl>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace lorvane {

namespace {

StorageError::Kind kindOf(int code, const QString& path)
{
    switch (code & 0xff) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return StorageError::Kind::NotADatabase;
    case SQLITE_READONLY:
        return StorageError::Kind::ReadOnly;
    case SQLITE_CANTOPEN:
        return QFileInfo::exists(path) ? StorageError::Kind::Engine
                                       : StorageError::Kind::FileMissing;
    default:
        return StorageError::Kind::Engine;
    }
}

int flagsFor(SqliteDatabase::Mode mode)
{
    switch (mode) {
    case SqliteDatabase::Mode::ReadOnly:
        return SQLite::OPEN_READONLY;
    case SqliteDatabase::Mode::ReadWrite:
        return SQLite::OPEN_READWRITE;
    case SqliteDatabase::Mode::Create:
        return SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE;
    }
    return SQLite::OPEN_READONLY;
}

} // namespace

SqliteDatabase::SqliteDatabase(const QString& path, Mode mode) : m_path(path), m_mode(mode)
{
    if (mode != Mode::Create && !QFileInfo(path).isFile())
        throw StorageError(StorageError::Kind::FileMissing, path, QStringLiteral("file not found"));
    try {
        // A shared meter file may be busy for a moment while another program writes it.
        // URI file names let an attached meter file be opened read-only (`mode=ro`); a plain
        // path is read as before.
        m_db = std::make_unique<SQLite::Database>(path.toStdString(),
                                                  flagsFor(mode) | SQLite::OPEN_URI, 5000);
        // SQLite opens any file lazily; reading the catalogue proves it is a database.
        m_db->exec("SELECT count(*) FROM sqlite_master");
    } catch (const SQLite::Exception& e) {
        throw StorageError(kindOf(e.getErrorCode(), path), path, QString::fromUtf8(e.what()));
    }
}

SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::fail(const std::exception& e) const
{
    if (const auto* storage = dynamic_cast<const StorageError*>(&e))
        throw *storage;
    int code = SQLITE_ERROR;
    if (const auto* engine = dynamic_cast<const SQLite::Exception*>(&e))
        code = engine->getErrorCode();
    throw StorageError(kindOf(code, m_path), m_path, QString::fromUtf8(e.what()));
}

SqlStatement SqliteDatabase::prepare(const QString& sql)
{
    return SqlStatement(*this, sql);
}

void SqliteDatabase::execute(const QString& sql, const QVariantList& values)
{
    SqlStatement statement(*this, sql);
    statement.bindAll(values);
    statement.run();
}

void SqliteDatabase::executeScript(const QString& sql)
{
    try {
        m_db->exec(sql.toStdString());
    } catch (const std::exception& e) {
        fail(e);
    }
}

QVariant SqliteDatabase::scalar(const QString& sql, const QVariantList& values)
{
    SqlStatement statement(*this, sql);
    statement.bindAll(values);
    return statement.next() ? statement.value(0) : QVariant();
}

QVariantMap SqliteDatabase::firstRow(const QString& sql, const QVariantList& values)
{
    SqlStatement statement(*this, sql);
    statement.bindAll(values);
    QVariantMap row;
    if (statement.next()) {
        for (int c = 0; c < statement.columnCount(); ++c)
            row.insert(statement.columnName(c), statement.value(c));
    }
    return row;
}

bool SqliteDatabase::hasRows(const QString& sql, const QVariantList& values)
{
    SqlStatement statement(*this, sql);
    statement.bindAll(values);
    return statement.next();
}

bool SqliteDatabase::tableExists(const QString& table)
{
    return hasRows(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type IN ('table','view') "
                                  "AND name = ? COLLATE NOCASE"),
                   {table});
}

QStringList SqliteDatabase::columns(const QString& table)
{
    QStringList names;
    SqlStatement statement(*this, QStringLiteral("SELECT name FROM pragma_table_info(?)"));
    statement.bind(1, table);
    while (statement.next())
        names << statement.text(0);
    return names;
}

bool SqliteDatabase::tableHasField(const QString& table, const QString& column)
{
    try {
        SqlStatement statement(*this,
                               QStringLiteral("select %1 from %2 where 1=0")
                                   .arg(SqlIdentifier::quote(column), SqlIdentifier::quote(table)));
        statement.next();
        return true;
    } catch (const StorageError&) {
        return false;
    }
}

QStringList SqliteDatabase::tables()
{
    QStringList names;
    SqlStatement statement(*this, QStringLiteral("SELECT name FROM sqlite_master WHERE type = "
                                                 "'table' ORDER BY name"));
    while (statement.next())
        names << statement.text(0);
    return names;
}

void SqliteDatabase::attach(const QString& path, const QString& alias, bool readOnly)
{
    if (!QFileInfo(path).isFile())
        throw StorageError(StorageError::Kind::FileMissing, path, QStringLiteral("file not found"));
    QString name = path;
    if (readOnly) {
        QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
        url.setQuery(QStringLiteral("mode=ro"));
        name = url.toString(QUrl::FullyEncoded);
    }
    bool attached = false;
    try {
        execute(QStringLiteral("ATTACH DATABASE ? AS %1").arg(SqlIdentifier::quote(alias)), {name});
        attached = true;
        // ATTACH may open lazily: reading the attached catalogue proves the file is a database.
        scalar(QStringLiteral("SELECT count(*) FROM %1.sqlite_master")
                   .arg(SqlIdentifier::quote(alias)));
    } catch (const StorageError& e) {
        if (attached)
            detach(alias);
        throw StorageError(e.kind(), path, e.detail());
    }
}

void SqliteDatabase::detach(const QString& alias)
{
    execute(QStringLiteral("DETACH DATABASE %1").arg(SqlIdentifier::quote(alias)));
}

void SqliteDatabase::beginTransaction()
{
    executeScript(QStringLiteral("BEGIN"));
}

void SqliteDatabase::commit()
{
    executeScript(QStringLiteral("COMMIT"));
}

void SqliteDatabase::rollback()
{
    executeScript(QStringLiteral("ROLLBACK"));
}

qint64 SqliteDatabase::lastInsertRowId() const
{
    return m_db->getLastInsertRowid();
}

bool TableHasField(const QString& path, const QString& table, const QString& column)
{
    try {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
        return db.tableHasField(table, column);
    } catch (const StorageError&) {
        return false;
    }
}

} // namespace lorvane
