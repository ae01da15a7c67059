// SPDX-License-Identifier: GPL-3.0-or-later
#include "TextUtil.h"

#include "StoredPath.h"

namespace lorvane {

QString TextUtil::trimZero(const QString& text)
{
    QString result = text;
    result.replace(QChar(u'\0'), QChar(u' '));
    return result.trimmed();
}

TextUtil::PathParts TextUtil::splitPath(const QString& path)
{
    const qsizetype separator = StoredPath::lastSeparator(path);
    PathParts parts;
    parts.folder = path.left(separator + 1);
    const QString fileName = path.mid(separator + 1);
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (separator < 0 || dot < 0) {
        parts.name = fileName;
        parts.extension = QStringLiteral(".");
        return parts;
    }
    parts.name = fileName.left(dot);
    parts.extension = fileName.mid(dot);
    return parts;
}

} // namespace lorvane
