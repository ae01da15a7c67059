// SPDX-License-Identifier: GPL-3.0-or-later
#include "LocalSystemSettings.h"

#include "platform/ProfileFile.h"

#include <QStringList>
#include <algorithm>

namespace lorvane {

int LocalSystemSettings::clampedNumber(const QString& text, int lowest, int highest)
{
    bool ok = false;
    const long long value = text.trimmed().toLongLong(&ok);
    return static_cast<int>(std::clamp<long long>(ok ? value : 0, lowest, highest));
}

QString LocalSystemSettings::checkedDataFormat(const QString& format)
{
    static const QStringList formats = {QStringLiteral("0"),      QStringLiteral("0.0"),
                                        QStringLiteral("0.00"),   QStringLiteral("0.000"),
                                        QStringLiteral("0.0000"), QStringLiteral("0.00000")};
    return formats.contains(format) ? format : QStringLiteral("0.00");
}

void LocalSystemSettings::read(const QString& settingsFile, const UserSettingReader& userSetting)
{
    const ProfileFile file(settingsFile);
    const QString section = QStringLiteral("LocalSystem");
    const auto text = [&](const char* key, const char* defaultValue) {
        return file.readString(section, QString::fromLatin1(key),
                               QString::fromLatin1(defaultValue));
    };
    const auto flag = [&](const char* key, const char* defaultValue) {
        return text(key, defaultValue).toUpper() == QLatin1String("YES");
    };

    defaultPath = text("DefaultPath", "");
    const QString method = text("DefaultMethod", "").toUpper();
    if (method.isEmpty()) {
        dataPathMethod = 0;
        currentPath.clear();
    } else if (method == QLatin1String("HALYXC")) {
        dataPathMethod = 1;
        currentPath = userSetting(QStringLiteral("Tessera Ext"), QStringLiteral("Default Paths"),
                                  QStringLiteral("Retrieved Logs Path"), currentPath);
        defaultPath = currentPath;
    } else if (method == QLatin1String("USERSET")) {
        dataPathMethod = 2;
        currentPath = defaultPath;
    }

    autoLoadDBs = flag("AutoLoadDBs", "No");
    searchSubDirectories = flag("SearchSubDirectories", "No");
    maxDeviceLogNumber = clampedNumber(text("MaxDeviceLogNumber", "2"), 1, 2);
    tempLogRecSize = clampedNumber(text("TempLogRecSize", "4500"), 100, 50000);
    dataFormat = checkedDataFormat(text("DataFormat", "0.00"));
    showHalyxLookUp = flag("ShowHalyxLookUp", "No");
    useCBEMACurve = flag("UseCBEMACurve", "Yes");
    userPQCurveFile = text("UserPQCurveFile", "");
    useUserHalyxScaledFormats = flag("UseUserHalyxScaledFormats", "No");
}

} // namespace lorvane
