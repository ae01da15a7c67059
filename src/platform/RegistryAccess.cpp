// SPDX-License-Identifier: GPL-3.0-or-later
#include "RegistryAccess.h"

#include "ProfileFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <algorithm>

namespace lorvane {

namespace {

// The values hold paths; a path is longer than any profile buffer of the sibling programs.
constexpr int valueBufferSize = 32768;
// A line of binary data in a registry file breaks after about this many characters.
constexpr int exportLineWidth = 76;

const QString storeName = QStringLiteral("lorvane/registry.ini");
const QString stringPrefix = QStringLiteral("sz:");

QString storedName(const QString& valueName)
{
    return valueName.isEmpty() ? QStringLiteral("@") : valueName;
}

/// The value that a stored text stands for.
RegistryAccess::Value decode(const QString& stored)
{
    static const QRegularExpression number(QStringLiteral("^dword:([0-9a-f]{1,8})$"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression binary(
        QStringLiteral("^hex:\\s*((?:[0-9a-f]{2}\\s*,\\s*)*[0-9a-f]{2})?\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    RegistryAccess::Value value;
    if (stored.startsWith(stringPrefix, Qt::CaseInsensitive)) {
        value.text = stored.mid(stringPrefix.size());
    } else if (const auto match = number.match(stored); match.hasMatch()) {
        value.type = RegistryAccess::Type::Number;
        value.number = match.captured(1).toUInt(nullptr, 16);
    } else if (const auto bytes = binary.match(stored); bytes.hasMatch()) {
        value.type = RegistryAccess::Type::Binary;
        value.bytes = QByteArray::fromHex(bytes.captured(1).toLatin1());
    } else {
        value.text = stored;
    }
    return value;
}

/// The text that stores `value` so that `decode` gives it back after the profile file has
/// trimmed it and dropped one pair of quotes.
QString encode(const RegistryAccess::Value& value)
{
    switch (value.type) {
    case RegistryAccess::Type::Number:
        return QStringLiteral("dword:%1").arg(value.number, 8, 16, QLatin1Char('0'));
    case RegistryAccess::Type::Binary:
        return QStringLiteral("hex:") + QString::fromLatin1(value.bytes.toHex(','));
    case RegistryAccess::Type::String:
        break;
    }
    QString text = value.text;
    if (text.startsWith(stringPrefix, Qt::CaseInsensitive) ||
        decode(text).type != RegistryAccess::Type::String)
        text.prepend(stringPrefix);
    const bool quoted = text.size() >= 2 && (text.front() == u'"' || text.front() == u'\'') &&
                        text.back() == text.front();
    if (quoted || text != text.trimmed())
        text = u'"' + text + u'"';
    return text;
}

/// A name as a registry file writes it between quotes.
QString escaped(const QString& text)
{
    QString result = text;
    result.replace(u'\\', QStringLiteral("\\\\"));
    result.replace(u'"', QStringLiteral("\\\""));
    return u'"' + result + u'"';
}

/// One value as a line (or, for long binary data, continued lines) of a registry file.
QString exportLine(const QString& valueName, const RegistryAccess::Value& value)
{
    QString line =
        valueName == QLatin1String("@") ? QStringLiteral("@=") : escaped(valueName) + u'=';
    switch (value.type) {
    case RegistryAccess::Type::String:
        return line + escaped(value.text);
    case RegistryAccess::Type::Number:
        return line + QStringLiteral("dword:%1").arg(value.number, 8, 16, QLatin1Char('0'));
    case RegistryAccess::Type::Binary:
        break;
    }
    line += QStringLiteral("hex:");
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < value.bytes.size(); ++i) {
        line += QString::fromLatin1(value.bytes.mid(i, 1).toHex());
        if (i + 1 == value.bytes.size())
            break;
        line += u',';
        if (line.size() - lineStart > exportLineWidth) {
            line += QStringLiteral("\\\r\n  ");
            lineStart = line.size() - 2;
        }
    }
    return line;
}

bool startsWithKey(const QString& path, const QString& prefix)
{
    return path.startsWith(prefix + u'\\', Qt::CaseInsensitive);
}

} // namespace

QString RegistryAccess::environmentName(const QString& valueName)
{
    QString name = QStringLiteral("LORVANE_REG_");
    for (const QChar c : valueName.toUpper())
        name += (c.isLetterOrNumber() && c.unicode() < 128) ? c : QChar(u'_');
    return name;
}

QString RegistryAccess::normalizedKeyPath(const QString& keyPath)
{
    static const QStringList roots = {
        QStringLiteral("HKEY_CLASSES_ROOT"), QStringLiteral("HKEY_CURRENT_USER"),
        QStringLiteral("HKEY_LOCAL_MACHINE"), QStringLiteral("HKEY_USERS"),
        QStringLiteral("HKEY_CURRENT_CONFIG")};
    QStringList names = keyPath.trimmed().split(u'\\', Qt::SkipEmptyParts);
    if (names.isEmpty() || !roots.contains(names.front(), Qt::CaseInsensitive))
        return {};
    names.front() = names.front().toUpper();
    return names.join(u'\\');
}

QString RegistryAccess::userStoreFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           storeName;
}

QStringList RegistryAccess::storeFiles()
{
    return QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, storeName);
}

namespace {

/// The spelling of the section of `file` that names the key `keyPath` (already normalized),
/// or a null string.
QString sectionOf(const ProfileFile& file, const QString& keyPath)
{
    for (const QString& section : file.sectionNames()) {
        if (RegistryAccess::normalizedKeyPath(section).compare(keyPath, Qt::CaseInsensitive) == 0)
            return section;
    }
    return {};
}

} // namespace

std::optional<RegistryAccess::Value> RegistryAccess::read(const QString& keyPath,
                                                          const QString& valueName) const
{
    const QString key = normalizedKeyPath(keyPath);
    if (key.isEmpty())
        return std::nullopt;
    const QByteArray variable = environmentName(valueName).toLocal8Bit();
    if (qEnvironmentVariableIsSet(variable.constData()))
        return decode(qEnvironmentVariable(variable.constData()));

    const QString name = storedName(valueName);
    for (const QString& path : storeFiles()) {
        const ProfileFile store(path);
        const QString section = sectionOf(store, key);
        if (!section.isNull() && store.hasKey(section, name))
            return decode(store.readString(section, name, QString(), valueBufferSize));
    }
    return std::nullopt;
}

QString RegistryAccess::readString(const QString& keyPath, const QString& valueName) const
{
    const auto value = read(keyPath, valueName);
    return value && value->type == Type::String ? value->text : QString();
}

std::optional<quint32> RegistryAccess::readNumber(const QString& keyPath,
                                                  const QString& valueName) const
{
    const auto value = read(keyPath, valueName);
    if (value && value->type == Type::Number)
        return value->number;
    return std::nullopt;
}

std::optional<QByteArray> RegistryAccess::readBinary(const QString& keyPath,
                                                     const QString& valueName) const
{
    const auto value = read(keyPath, valueName);
    if (value && value->type == Type::Binary)
        return value->bytes;
    return std::nullopt;
}

bool RegistryAccess::write(const QString& keyPath, const QString& valueName, const QString& stored)
{
    const QString key = normalizedKeyPath(keyPath);
    if (key.isEmpty())
        return false;
    const QString path = userStoreFile();
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    ProfileFile store(path);
    const QString section = sectionOf(store, key);
    return store.writeString(section.isNull() ? key : section, storedName(valueName), stored);
}

bool RegistryAccess::writeString(const QString& keyPath, const QString& valueName,
                                 const QString& text)
{
    return write(keyPath, valueName, encode({Type::String, text, 0, {}}));
}

bool RegistryAccess::writeNumber(const QString& keyPath, const QString& valueName, quint32 number)
{
    return write(keyPath, valueName, encode({Type::Number, {}, number, {}}));
}

bool RegistryAccess::writeBinary(const QString& keyPath, const QString& valueName,
                                 const QByteArray& bytes)
{
    return write(keyPath, valueName, encode({Type::Binary, {}, 0, bytes}));
}

QStringList RegistryAccess::subKeys(const QString& keyPath) const
{
    const QString key = normalizedKeyPath(keyPath);
    QStringList names;
    if (key.isEmpty())
        return names;
    for (const QString& path : storeFiles()) {
        for (const QString& section : ProfileFile(path).sectionNames()) {
            const QString normalized = normalizedKeyPath(section);
            if (!startsWithKey(normalized, key))
                continue;
            const QString name = normalized.mid(key.size() + 1).section(u'\\', 0, 0);
            if (!names.contains(name, Qt::CaseInsensitive))
                names.append(name);
        }
    }
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return names;
}

QStringList RegistryAccess::valueNames(const QString& keyPath) const
{
    const QString key = normalizedKeyPath(keyPath);
    QStringList names;
    if (key.isEmpty())
        return names;
    for (const QString& path : storeFiles()) {
        const ProfileFile store(path);
        const QString section = sectionOf(store, key);
        if (section.isNull())
            continue;
        for (const QString& name : store.keyNames(section)) {
            if (!names.contains(name, Qt::CaseInsensitive))
                names.append(name);
        }
    }
    return names;
}

void RegistryAccess::exportKey(const QString& keyPath, QString& text) const
{
    text += u'[' + keyPath + QStringLiteral("]\r\n");
    for (const QString& name : valueNames(keyPath)) {
        if (const auto value = read(keyPath, name))
            text += exportLine(name, *value) + QStringLiteral("\r\n");
    }
    text += QStringLiteral("\r\n");
    for (const QString& child : subKeys(keyPath))
        exportKey(keyPath + u'\\' + child, text);
}

QString RegistryAccess::exportText(const QString& keyPath) const
{
    const QString key = normalizedKeyPath(keyPath);
    if (key.isEmpty())
        return {};
    bool exists = false;
    for (const QString& path : storeFiles()) {
        const ProfileFile store(path);
        exists = exists || !sectionOf(store, key).isNull();
        for (const QString& section : store.sectionNames())
            exists = exists || startsWithKey(normalizedKeyPath(section), key);
    }
    if (!exists)
        return {};
    QString text = QStringLiteral("REGEDIT4\r\n\r\n");
    exportKey(key, text);
    return text;
}

QString RegistryAccess::readUserSetting(const QString& application, const QString& section,
                                        const QString& key, const QString& defaultValue) const
{
    const QString value = readString(userSettingsKey(application, section), key);
    return value.isEmpty() ? defaultValue : value;
}

bool RegistryAccess::writeUserSetting(const QString& application, const QString& section,
                                      const QString& key, const QString& text)
{
    return writeString(userSettingsKey(application, section), key, text);
}

QString RegistryAccess::userSettingsKey(const QString& application, const QString& section)
{
    return QStringLiteral("HKEY_CURRENT_USER\\Software\\") + application + u'\\' + section;
}

} // namespace lorvane
