// SPDX-License-Identifier: GPL-3.0-or-later
#include "FolderResolver.h"

#include "platform/ProfileFile.h"
#include "platform/StoredPath.h"

namespace lorvane {

namespace {

QString withoutTrailingSeparator(const QString& path)
{
    // "C:\" must stay a drive's root, so only texts of 4 characters or more lose it.
    if (path.size() >= 4 && StoredPath::endsWithSeparator(path))
        return path.left(path.size() - 1);
    return path;
}

} // namespace

FolderResolver::FolderResolver(QString pathsFile) : m_pathsFile(std::move(pathsFile))
{
}

QString FolderResolver::sectionName(int program)
{
    switch (program) {
    case TesseraExt:
        return QStringLiteral("QLM Tessera Ext");
    case Lorvane:
        return QStringLiteral("QLM Lorvane");
    case Harvester:
        return QStringLiteral("QLM Harvester");
    default:
        return {};
    }
}

QString FolderResolver::keyName(int key)
{
    switch (key) {
    case UserDataPath:
        return QStringLiteral("UserDataPath");
    case ProgDataPath:
        return QStringLiteral("ProgDataPath");
    case ProgPath:
        return QStringLiteral("ProgPath");
    default:
        return {};
    }
}

FolderResolver::Lookup FolderResolver::lookup(const QString& section, const QString& key,
                                              const QString& file)
{
    const QString value =
        ProfileFile(file).readString(section, key, QString::fromLatin1(notFound), bufferSize);
    if (value == QLatin1String(notFound)) {
        return {QStringLiteral("::Path Not Found::  Section = ") + section + u'\t' +
                    QStringLiteral("key = ") + key + u'\t' + QStringLiteral("file = ") + file,
                0};
    }
    return {value, static_cast<int>(value.size())};
}

QString FolderResolver::resolve(int program, int key, bool isFolder, const QString& fileName) const
{
    const QString section = sectionName(program);
    const QString keyText = keyName(key);
    if (section.isEmpty() || keyText.isEmpty())
        return {};
    const Lookup found = lookup(section, keyText, fileName.isEmpty() ? m_pathsFile : fileName);
    if (found.length == 0)
        return {};

    const QString& value = found.text;
    if (!isFolder && value.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive))
        return value.left(std::max<qsizetype>(StoredPath::lastSeparator(value), 0));
    return withoutTrailingSeparator(value);
}

} // namespace lorvane
