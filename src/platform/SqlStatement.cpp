// SPDX-License-Identifier: GPL-3.0-or-later
#include "SqlStatement.h"

#include "SqliteDatabase.h"

#include <QByteArray>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace lorvane {

SqlStatement::SqlStatement(SqliteDatabase& db, const QString& sql) : m_db(&db)
{
    try {
        m_statement = std::make_unique<SQLite::Statement>(db.handle(), sql.toStdString());
    } catch (const std::exception& e) {
        fail(e);
    }
}

SqlStatement::~SqlStatement() = default;
SqlStatement::SqlStatement(SqlStatement&&) noexcept = default;
SqlStatement& SqlStatement::operator=(SqlStatement&&) noexcept = default;

void SqlStatement::fail(const std::exception& e) const
{
    m_db->fail(e);
}

SqlStatement& SqlStatement::bind(int position, const QVariant& value)
{
    try {
        if (value.isNull() || !value.isValid()) {
            m_statement->bind(position);
            return *this;
        }
        switch (value.typeId()) {
        case QMetaType::Bool:
            m_statement->bind(position, static_cast<int64_t>(value.toBool() ? -1 : 0));
            break;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Char:
        case QMetaType::UChar:
        case QMetaType::SChar:
            m_statement->bind(position, static_cast<int64_t>(value.toLongLong()));
            break;
        case QMetaType::Double:
        case QMetaType::Float:
            m_statement->bind(position, value.toDouble());
            break;
        case QMetaType::QByteArray: {
            const QByteArray bytes = value.toByteArray();
            m_statement->bind(position, bytes.constData(), static_cast<int>(bytes.size()));
            break;
        }
        default:
            m_statement->bind(position, value.toString().toStdString());
            break;
        }
    } catch (const std::exception& e) {
        fail(e);
    }
    return *this;
}

SqlStatement& SqlStatement::bind(int position, qint64 value)
{
    try {
        m_statement->bind(position, static_cast<int64_t>(value));
    } catch (const std::exception& e) {
        fail(e);
    }
    return *this;
}

SqlStatement& SqlStatement::bind(int position, double value)
{
    try {
        m_statement->bind(position, value);
    } catch (const std::exception& e) {
        fail(e);
    }
    return *this;
}

SqlStatement& SqlStatement::bind(int position, const QString& value)
{
    try {
        m_statement->bind(position, value.toStdString());
    } catch (const std::exception& e) {
        fail(e);
    }
    return *this;
}

SqlStatement& SqlStatement::bindAll(const QVariantList& values)
{
    for (int i = 0; i < values.size(); ++i)
        bind(i + 1, values.at(i));
    return *this;
}

bool SqlStatement::next()
{
    try {
        return m_statement->executeStep();
    } catch (const std::exception& e) {
        fail(e);
    }
}

void SqlStatement::run()
{
    try {
        while (m_statement->executeStep()) {
        }
    } catch (const std::exception& e) {
        fail(e);
    }
}

void SqlStatement::reset()
{
    try {
        m_statement->reset();
    } catch (const std::exception& e) {
        fail(e);
    }
}

int SqlStatement::columnCount() const
{
    return m_statement->getColumnCount();
}

QString SqlStatement::columnName(int column) const
{
    return QString::fromUtf8(m_statement->getColumnName(column));
}

int SqlStatement::columnIndex(const QString& name) const
{
    const int count = columnCount();
    for (int i = 0; i < count; ++i) {
        if (columnName(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool SqlStatement::isNull(int column) const
{
    return m_statement->getColumn(column).isNull();
}

QVariant SqlStatement::value(int column) const
{
    const SQLite::Column cell = m_statement->getColumn(column);
    switch (cell.getType()) {
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(cell.getInt64()));
    case SQLITE_FLOAT:
        return QVariant(cell.getDouble());
    case SQLITE_TEXT:
        return QVariant(QString::fromUtf8(cell.getText(), cell.getBytes()));
    case SQLITE_BLOB:
        return QVariant(QByteArray(static_cast<const char*>(cell.getBlob()), cell.getBytes()));
    default:
        return QVariant();
    }
}

QVariant SqlStatement::value(const QString& name) const
{
    const int column = columnIndex(name);
    return column < 0 ? QVariant() : value(column);
}

qint64 SqlStatement::integer(int column) const
{
    return m_statement->getColumn(column).getInt64();
}

double SqlStatement::real(int column) const
{
    return m_statement->getColumn(column).getDouble();
}

QByteArrayView SqlStatement::bytes(int column) const
{
    const SQLite::Column cell = m_statement->getColumn(column);
    if (cell.isNull())
        return {};
    // The engine converts to text first and counts the bytes of that text.
    const char* text = cell.getText();
    return QByteArrayView(text, cell.getBytes());
}

QString SqlStatement::text(int column) const
{
    const SQLite::Column cell = m_statement->getColumn(column);
    return cell.isNull() ? QString() : QString::fromUtf8(cell.getText(), cell.getBytes());
}

} // namespace lorvane
