// SPDX-License-Identifier: GPL-3.0-or-later
#include "LocalSystemSettings.h"

#include "platform/ProfileFile.h"

#include <QStringList>
#include <algorithm>
#include <iterator>
#include <utility>

namespace lorvane {

namespace {
const QString sectionName = QStringLiteral("LocalSystem");
} // namespace

int LocalSystemSettings::clampedNumber(const QString& text, int lowest, int highest)
{
    bool ok = false;
    const long long value = text.trimmed().toLongLong(&ok);
    return static_cast<int>(std::clamp<long long>(ok ? value : 0, lowest, highest));
}

const QStringList& LocalSystemSettings::dataFormats()
{
    static const QStringList formats = {QStringLiteral("0"),      QStringLiteral("0.0"),
                                        QStringLiteral("0.00"),   QStringLiteral("0.000"),
                                        QStringLiteral("0.0000"), QStringLiteral("0.00000")};
    return formats;
}

QString LocalSystemSettings::checkedDataFormat(const QString& format)
{
    return dataFormats().contains(format) ? format : QStringLiteral("0.00");
}

void LocalSystemSettings::read(const QString& settingsFile, const UserSettingReader& userSetting)
{
    const ProfileFile file(settingsFile);
    const auto text = [&](const char* key, const char* defaultValue) {
        return file.readString(sectionName, QString::fromLatin1(key),
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
    maxDeviceLogNumber = clampedNumber(text("MaxDeviceLogNumber", "2"), fewestDevices, mostDevices);
    tempLogRecSize =
        clampedNumber(text("TempLogRecSize", "4500"), smallestRecordSize, largestRecordSize);
    dataFormat = checkedDataFormat(text("DataFormat", "0.00"));
    showHalyxLookUp = flag("ShowHalyxLookUp", "No");
    useCBEMACurve = flag("UseCBEMACurve", "Yes");
    userPQCurveFile = text("UserPQCurveFile", "");
    useUserHalyxScaledFormats = flag("UseUserHalyxScaledFormats", "No");
}

bool LocalSystemSettings::write(const QString& settingsFile) const
{
    ProfileFile file(settingsFile);
    const auto yesNo = [](bool value) {
        return value ? QStringLiteral("Yes") : QStringLiteral("No");
    };
    const QString method = dataPathMethod == 1   ? QStringLiteral("HalyxC")
                           : dataPathMethod == 2 ? QStringLiteral("UserSet")
                                                 : QString();
    const std::pair<const char*, QString> entries[] = {
        {"DefaultPath", defaultPath},
        {"DefaultMethod", method},
        {"AutoLoadDBs", yesNo(autoLoadDBs)},
        {"SearchSubDirectories", yesNo(searchSubDirectories)},
        {"MaxDeviceLogNumber", QString::number(maxDeviceLogNumber)},
        {"TempLogRecSize", QString::number(tempLogRecSize)},
        {"Dataformat", dataFormat},
        {"ShowHalyxLookUp", yesNo(showHalyxLookUp)},
        {"UseCBEMACurve", yesNo(useCBEMACurve)},
        {"UserPQCurveFile", userPQCurveFile},
        {"UseUserHalyxScaledFormats", yesNo(useUserHalyxScaledFormats)},
    };
    return std::all_of(std::begin(entries), std::end(entries), [&](const auto& entry) {
        return file.writeString(sectionName, QString::fromLatin1(entry.first), entry.second);
    });
}

} // namespace lorvane
