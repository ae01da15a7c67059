// SPDX-License-Identifier: GPL-3.0-or-later
#include "AttachedMeterFiles.h"

#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"

namespace lorvane {

AttachedMeterFiles::~AttachedMeterFiles()
{
    for (const auto& [path, schema] : m_attached) {
        try {
            m_db.detach(schema);
        } catch (const StorageError&) {
            // Detaching fails only while a statement still reads the file; closing the
            // scratch database releases it anyway.
        }
    }
}

QString AttachedMeterFiles::schemaFor(const QString& path)
{
    for (int i = 0; i < m_attached.size(); ++i) {
        if (m_attached.at(i).first == path) {
            m_attached.move(i, m_attached.size() - 1);
            return m_attached.last().second;
        }
    }
    if (m_attached.size() >= maxAttached) {
        m_db.detach(m_attached.first().second);
        m_attached.removeFirst();
    }
    const QString schema = QStringLiteral("meter%1").arg(m_next++);
    m_db.attach(path, schema);
    m_attached.append({path, schema});
    return schema;
}

} // namespace lorvane
