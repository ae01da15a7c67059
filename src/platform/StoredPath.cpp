// SPDX-License-Identifier: GPL-3.0-or-later
#include "StoredPath.h"

#include <QDir>

namespace lorvane {

bool StoredPath::endsWithSeparator(const QString& path)
{
    return !path.isEmpty() && isSeparator(path.back());
}

qsizetype StoredPath::lastSeparator(const QString& path)
{
    return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
}

QString StoredPath::toLocal(const QString& path)
{
    QString local = path;
    return local.replace(u'\\', u'/');
}

QString StoredPath::child(const QString& folder, const QString& name)
{
    QString base = toLocal(folder);
    if (!base.isEmpty() && !base.endsWith(u'/'))
        base += u'/';
    const QDir dir(base.isEmpty() ? QStringLiteral(".") : base);
    if (!dir.exists(name)) {
        const QStringList entries =
            dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QString& entry : entries) {
            if (entry.compare(name, Qt::CaseInsensitive) == 0)
                return base + entry;
        }
    }
    return base + name;
}

} // namespace lorvane
