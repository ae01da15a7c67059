// SPDX-License-Identifier: GPL-3.0-or-later
#include "RegistryAccess.h"

#include "ProfileFile.h"

#include <QStandardPaths>

namespace lorvane {

namespace {
// The values hold paths; a path is longer than any profile buffer of the sibling programs.
constexpr int valueBufferSize = 32768;
} // namespace

QString RegistryAccess::environmentName(const QString& valueName)
{
    QString name = QStringLiteral("LORVANE_REG_");
    for (const QChar c : valueName.toUpper())
        name += (c.isLetterOrNumber() && c.unicode() < 128) ? c : QChar(u'_');
    return name;
}

QString RegistryAccess::readString(const QString& keyPath, const QString& valueName) const
{
    const QByteArray variable = environmentName(valueName).toLocal8Bit();
    if (qEnvironmentVariableIsSet(variable.constData()))
        return qEnvironmentVariable(variable.constData());

    const QStringList files = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation,
                                                        QStringLiteral("lorvane/registry.ini"));
    for (const QString& path : files) {
        const ProfileFile store(path);
        if (store.hasKey(keyPath, valueName))
            return store.readString(keyPath, valueName, QString(), valueBufferSize);
    }
    return {};
}

QString RegistryAccess::readUserSetting(const QString& application, const QString& section,
                                        const QString& key, const QString& defaultValue) const
{
    const QString keyPath =
        QStringLiteral("HKEY_CURRENT_USER\\Software\\") + application + u'\\' + section;
    const QString value = readString(keyPath, key);
    return value.isEmpty() ? defaultValue : value;
}

} // namespace lorvane
