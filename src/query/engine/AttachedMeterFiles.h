// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPair>
#include <QString>

namespace lorvane {

class SqliteDatabase;

/// Meter files attached read-only to the scratch database for one load. The engine attaches
/// only a few files at once, while a split-log meter has eighteen: the least recently used
/// file is detached when a further one is needed. Everything is detached at the end.
class AttachedMeterFiles
{
public:
    static constexpr int maxAttached = 8;

    explicit AttachedMeterFiles(SqliteDatabase& db) : m_db(db) {}
    ~AttachedMeterFiles();
    AttachedMeterFiles(const AttachedMeterFiles&) = delete;
    AttachedMeterFiles& operator=(const AttachedMeterFiles&) = delete;

    /// The schema name under which `path` is attached; attaches it when it is not. Throws
    /// StorageError when the file cannot be read.
    QString schemaFor(const QString& path);

private:
    SqliteDatabase& m_db;
    QList<QPair<QString, QString>> m_attached; ///< (path, schema), most recent last
    int m_next = 0;
};

} // namespace lorvane
