// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProfileFile.h"

#include <QFile>
#include <QSaveFile>

namespace lorvane {

namespace {

/// Name of a section header line ("[name]"), or a null string when the line is no header.
QString sectionName(const QString& line)
{
    const QString trimmed = line.trimmed();
    if (!trimmed.startsWith(u'['))
        return {};
    const qsizetype close = trimmed.indexOf(u']');
    return (close < 0 ? trimmed.mid(1) : trimmed.mid(1, close - 1)).trimmed();
}

bool isComment(const QString& line)
{
    const QString trimmed = line.trimmed();
    return trimmed.startsWith(u';') || trimmed.startsWith(u'#');
}

QString stripQuotes(QString value)
{
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        return value.mid(1, value.size() - 2);
    return value;
}

QString cut(const QString& text, int bufferSize)
{
    return bufferSize < 1 ? QString() : text.left(bufferSize - 1);
}

} // namespace

ProfileFile::ProfileFile(QString path) : m_path(std::move(path))
{
}

QStringList ProfileFile::lines(bool* exists) const
{
    QFile file(m_path);
    const bool opened = file.open(QIODevice::ReadOnly);
    if (exists)
        *exists = opened;
    if (!opened)
        return {};
    QString text = QString::fromUtf8(file.readAll());
    text.remove(u'\r');
    QStringList result = text.split(u'\n');
    // A final line break does not start another line.
    if (!result.isEmpty() && result.back().isEmpty())
        result.removeLast();
    return result;
}

int ProfileFile::findKey(const QStringList& lines, const QString& section, const QString& key,
                         int* sectionEnd)
{
    bool inSection = false;
    int found = -1;
    *sectionEnd = -1;
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        const QString name = sectionName(line);
        if (!name.isNull()) {
            // Only the first section of that name counts, as with the profile calls.
            if (inSection)
                return found;
            inSection = *sectionEnd < 0 && name.compare(section, Qt::CaseInsensitive) == 0;
            if (inSection)
                *sectionEnd = i + 1;
            continue;
        }
        if (!inSection || line.trimmed().isEmpty())
            continue;
        *sectionEnd = i + 1;
        if (found >= 0 || isComment(line))
            continue;
        const qsizetype equals = line.indexOf(u'=');
        if (equals >= 0 && line.left(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            found = i;
    }
    return found;
}

QString ProfileFile::readString(const QString& section, const QString& key,
                                const QString& defaultValue, int bufferSize) const
{
    const QStringList all = lines();
    int sectionEnd = -1;
    const int index = findKey(all, section, key, &sectionEnd);
    if (index < 0)
        return cut(defaultValue.trimmed(), bufferSize);
    const QString& line = all[index];
    return cut(stripQuotes(line.mid(line.indexOf(u'=') + 1).trimmed()), bufferSize);
}

bool ProfileFile::hasKey(const QString& section, const QString& key) const
{
    int sectionEnd = -1;
    return findKey(lines(), section, key, &sectionEnd) >= 0;
}

bool ProfileFile::writeString(const QString& section, const QString& key, const QString& value)
{
    bool exists = false;
    QStringList all = lines(&exists);
    QString lineBreak = QStringLiteral("\r\n");
    if (exists) {
        QFile file(m_path);
        if (file.open(QIODevice::ReadOnly) && !file.readLine().endsWith("\r\n") && file.size() > 0)
            lineBreak = QStringLiteral("\n");
    }

    const QString entry = key + u'=' + value;
    int sectionEnd = -1;
    const int index = findKey(all, section, key, &sectionEnd);
    if (index >= 0) {
        all[index] = entry;
    } else if (sectionEnd >= 0) {
        all.insert(sectionEnd, entry);
    } else {
        if (!all.isEmpty() && !all.back().trimmed().isEmpty())
            all.append(QString());
        all.append(u'[' + section + u']');
        all.append(entry);
    }

    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write((all.join(lineBreak) + lineBreak).toUtf8());
    return file.commit();
}

} // namespace lorvane
