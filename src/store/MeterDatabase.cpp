// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterDatabase.h"

#include "IdTable.h"
#include "MeterMessages.h"
#include "platform/Fault.h"
#include "platform/StorageError.h"

#include <QFileInfo>

namespace lorvane {

namespace {

Fault faultFor(const StorageError& e, const QString& step, const QString& path)
{
    switch (e.kind()) {
    case StorageError::Kind::FileMissing:
        return Fault(Fault::Kind::FileMissing, MeterMessages::fileMissing(path), step, path);
    case StorageError::Kind::NotADatabase:
        return Fault(Fault::Kind::NotADatabase, MeterMessages::notADatabase(path), step, path);
    case StorageError::Kind::ReadOnly:
        return Fault(Fault::Kind::ReadOnly,
                     MeterMessages::readOnlyAttribute(QFileInfo(path).fileName()), step, path);
    case StorageError::Kind::Engine:
        break;
    }
    return Fault(Fault::Kind::Other, MeterMessages::engineFailure(step, path, e.detail()), step,
                 path);
}

} // namespace

MeterDatabase::MeterDatabase(const QString& path, const QString& step) : m_path(path)
{
    try {
        m_db = std::make_unique<SqliteDatabase>(path, SqliteDatabase::Mode::ReadOnly);
    } catch (const StorageError& e) {
        throw faultFor(e, step, path);
    }
}

void MeterDatabase::rethrow(const QString& step, const std::exception& e) const
{
    rethrow(step, m_path, e);
}

void MeterDatabase::rethrow(const QString& step, const QString& path, const std::exception& e)
{
    if (const auto* fault = dynamic_cast<const Fault*>(&e))
        throw *fault;
    if (const auto* storage = dynamic_cast<const StorageError*>(&e))
        throw faultFor(*storage, step, path);
    throw Fault(Fault::Kind::Other,
                MeterMessages::engineFailure(step, path, QString::fromUtf8(e.what())), step, path);
}

QString MeterDatabase::fileName() const
{
    return QFileInfo(m_path).fileName();
}

bool MeterDatabase::readOnlyAttribute() const
{
    // The attribute is the file's own mark, not whether this user could write it anyway
    // (an administrator can write any file).
    return !(QFileInfo(m_path).permissions() & QFileDevice::WriteOwner);
}

double MeterDatabase::version()
{
    return guarded(QStringLiteral("GetDB_Version"), [&] { return IdTable::version(*m_db); });
}

QString MeterDatabase::note()
{
    return guarded(QStringLiteral("GetDB_Version"), [&] { return IdTable::note(*m_db); });
}

} // namespace lorvane
