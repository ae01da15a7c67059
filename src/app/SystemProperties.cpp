// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemProperties.h"

#include <QDir>

namespace lorvane {

SystemProperties::SystemProperties(LocalSystemSettings& settings, QString settingsFile,
                                   LocalSystemSettings::UserSettingReader userSetting)
    : m_settings(settings), m_settingsFile(std::move(settingsFile)),
      m_userSetting(std::move(userSetting))
{
    loadFields();
}

void SystemProperties::loadFields()
{
    loadDatabaseOnStartup = m_settings.autoLoadDBs;
    autoSearchAdditionalFolders = m_settings.searchSubDirectories;
    showLookupData = m_settings.showHalyxLookUp;
    useOldCBEMACurve = m_settings.useCBEMACurve;
    useUserDefinedFormats = m_settings.useUserHalyxScaledFormats;
    defaultDataPath = m_settings.defaultPath;
    maxDevices = QString::number(m_settings.maxDeviceLogNumber);
    maxDataPoints = QString::number(m_settings.tempLogRecSize);
    dataFormat = m_settings.dataFormat;
    pqCurveFile = m_settings.userPQCurveFile;
    m_useTesseraDefault = m_settings.dataPathMethod == 1;
    m_currentDataPath = m_settings.currentPath;
}

void SystemProperties::setUseTesseraDefault(bool checked)
{
    m_useTesseraDefault = checked;
    m_currentDataPath =
        checked ? m_userSetting(QStringLiteral("Tessera Ext"), QStringLiteral("Default Paths"),
                                QStringLiteral("Retrieved Logs Path"), m_settings.currentPath)
                : defaultDataPath;
}

bool SystemProperties::apply()
{
    LocalSystemSettings edited = m_settings;
    edited.autoLoadDBs = loadDatabaseOnStartup;
    edited.searchSubDirectories = autoSearchAdditionalFolders;
    edited.showHalyxLookUp = showLookupData;
    edited.useCBEMACurve = useOldCBEMACurve;
    edited.useUserHalyxScaledFormats = useUserDefinedFormats;
    edited.defaultPath = defaultDataPath;
    edited.dataPathMethod = m_useTesseraDefault ? 1 : 2;
    edited.maxDeviceLogNumber = LocalSystemSettings::clampedNumber(
        maxDevices, LocalSystemSettings::fewestDevices, LocalSystemSettings::mostDevices);
    edited.tempLogRecSize =
        LocalSystemSettings::clampedNumber(maxDataPoints, LocalSystemSettings::smallestRecordSize,
                                           LocalSystemSettings::largestRecordSize);
    edited.dataFormat = LocalSystemSettings::checkedDataFormat(dataFormat);
    edited.userPQCurveFile = pqCurveFile;

    if (!edited.write(m_settingsFile)) {
        m_errorMessage = QStringLiteral("The settings could not be saved to \"%1\".")
                             .arg(QDir::toNativeSeparators(m_settingsFile));
        return false;
    }
    m_errorMessage.clear();
    m_settings.read(m_settingsFile, m_userSetting);
    loadFields();
    return true;
}

} // namespace lorvane
