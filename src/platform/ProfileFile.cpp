// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProfileFile.h"

#include <QFile>
#include <QSaveFile>
#include <QStringConverter>

namespace lorvane {

/// The file as lines, each with the line end it had, and what is needed to write it back with
/// the same bytes.
struct ProfileFile::Content
{
    bool exists = false;
    QStringConverter::Encoding encoding = QStringConverter::Utf8;
    bool byteOrderMark = false;
    QStringList lines;
    /// The line end of each line: "\r\n", "\n", or empty for a last line without one.
    QStringList breaks;
    /// Line end of new lines: the file's first one, Windows style for a new file.
    QString newBreak = QStringLiteral("\r\n");
};

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

/// Name of the key that a line inside a section sets, or a null string for a blank line, a
/// comment or a line without `=`.
QString keyName(const QString& line)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0 || isComment(line))
        return {};
    return line.left(equals).trimmed();
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

bool holdsLineBreak(const QString& text)
{
    return text.contains(u'\n') || text.contains(u'\r');
}

} // namespace

ProfileFile::ProfileFile(QString path) : m_path(std::move(path))
{
}

ProfileFile::Content ProfileFile::content() const
{
    Content result;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return result;
    result.exists = true;
    const QByteArray bytes = file.readAll();

    // A byte order mark names the encoding; without one, text that is not valid UTF-8 comes
    // from an 8-bit code page, and Latin-1 gives every byte back unchanged on writing.
    if (const auto marked = QStringConverter::encodingForData(bytes)) {
        result.encoding = *marked;
        result.byteOrderMark = true;
    }
    QStringDecoder decoder(result.encoding);
    QString text = decoder.decode(bytes);
    if (decoder.hasError() && !result.byteOrderMark) {
        result.encoding = QStringConverter::Latin1;
        text = QString::fromLatin1(bytes);
    }

    bool firstBreak = true;
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype end = text.indexOf(u'\n', start);
        QString line = text.mid(start, end < 0 ? -1 : end - start);
        QString lineBreak;
        if (end >= 0) {
            lineBreak = QStringLiteral("\n");
            if (line.endsWith(u'\r')) {
                line.chop(1);
                lineBreak.prepend(u'\r');
            }
            if (firstBreak)
                result.newBreak = lineBreak;
            firstBreak = false;
        }
        result.lines.append(line);
        result.breaks.append(lineBreak);
        start = end < 0 ? text.size() : end + 1;
    }
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
        const QString lineKey = keyName(line);
        if (found < 0 && !lineKey.isNull() && lineKey.compare(key, Qt::CaseInsensitive) == 0)
            found = i;
    }
    return found;
}

QString ProfileFile::readString(const QString& section, const QString& key,
                                const QString& defaultValue, int bufferSize) const
{
    const QStringList all = content().lines;
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
    return findKey(content().lines, section, key, &sectionEnd) >= 0;
}

QStringList ProfileFile::sectionNames() const
{
    QStringList names;
    for (const QString& line : content().lines) {
        const QString name = sectionName(line);
        if (!name.isNull() && !names.contains(name, Qt::CaseInsensitive))
            names.append(name);
    }
    return names;
}

QStringList ProfileFile::keyNames(const QString& section) const
{
    QStringList names;
    bool inSection = false;
    bool seen = false;
    for (const QString& line : content().lines) {
        const QString header = sectionName(line);
        if (!header.isNull()) {
            if (inSection)
                break;
            inSection = !seen && header.compare(section, Qt::CaseInsensitive) == 0;
            seen = seen || inSection;
            continue;
        }
        const QString name = keyName(line);
        if (inSection && !name.isNull() && !names.contains(name, Qt::CaseInsensitive))
            names.append(name);
    }
    return names;
}

bool ProfileFile::writeString(const QString& section, const QString& key, const QString& value)
{
    const QString trimmedKey = key.trimmed();
    if (holdsLineBreak(section) || holdsLineBreak(key) || holdsLineBreak(value) ||
        section.contains(u']') || trimmedKey.isEmpty() || key.contains(u'=') ||
        trimmedKey.startsWith(u'[') || isComment(trimmedKey))
        return false;

    Content file = content();
    const QString entry = key + u'=' + value;
    const auto insert = [&](int index, const QString& line) {
        // The line before gains a line end when it was the file's last line without one.
        if (index > 0 && file.breaks[index - 1].isEmpty())
            file.breaks[index - 1] = file.newBreak;
        file.lines.insert(index, line);
        file.breaks.insert(index, file.newBreak);
    };

    int sectionEnd = -1;
    const int index = findKey(file.lines, section, key, &sectionEnd);
    if (index >= 0) {
        file.lines[index] = entry;
    } else if (sectionEnd >= 0) {
        insert(sectionEnd, entry);
    } else {
        if (!file.lines.isEmpty() && !file.lines.back().trimmed().isEmpty())
            insert(file.lines.size(), QString());
        insert(file.lines.size(), u'[' + section + u']');
        insert(file.lines.size(), entry);
    }

    QString text;
    for (int i = 0; i < file.lines.size(); ++i)
        text += file.lines[i] + file.breaks[i];
    QStringEncoder encoder(file.encoding, file.byteOrderMark ? QStringConverter::Flag::WriteBom
                                                             : QStringConverter::Flag::Default);
    const QByteArray bytes = encoder.encode(text);

    QSaveFile out(m_path);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    out.write(bytes);
    return out.commit();
}

} // namespace lorvane
