// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LocalSystemSettings.h"

#include <QString>

namespace lorvane {

/// What the System Properties dialog edits, apart from its widgets: the fields of page
/// "General", each bound to a key of section `LocalSystem`. The fields start from the run-wide
/// settings; "&Apply" and "&OK" write every key and read the section again with the reader of
/// start-up, which updates the run-wide settings and the fields; "&Cancel" drops the object
/// and nothing is written.
class SystemProperties
{
public:
    /// `settings` is the run-wide record (kept by reference), `settingsFile` the settings file,
    /// `userSetting` the reader of the user's application settings for method 1.
    SystemProperties(LocalSystemSettings& settings, QString settingsFile,
                     LocalSystemSettings::UserSettingReader userSetting);

    /// "Load Database on Startup" (`AutoLoadDBs`).
    bool loadDatabaseOnStartup = false;
    /// "Auto Search Additional Folders" (`SearchSubDirectories`).
    bool autoSearchAdditionalFolders = false;
    /// "Show Lookup Data for Devices" (`ShowHalyxLookUp`).
    bool showLookupData = false;
    /// "Use Old CBEMA Curve" (`UseCBEMACurve`).
    bool useOldCBEMACurve = true;
    /// "Use user defined formats for Device Scaled Energy Data" (`UseUserHalyxScaledFormats`).
    bool useUserDefinedFormats = false;
    /// "Default Data Path" (`DefaultPath`).
    QString defaultDataPath;
    /// "Max # of Devices in Collection" as typed (`MaxDeviceLogNumber`, kept to 1..2).
    QString maxDevices;
    /// "Max # of data points (cells) per grid for Historical Log" as typed (`TempLogRecSize`,
    /// kept to 100..50000).
    QString maxDataPoints;
    /// The chosen entry of "Data Format (Except for user defined Scaled Energy formats)"; a text
    /// that is none of `LocalSystemSettings::dataFormats` is written as "0.00".
    QString dataFormat;
    /// "PQ Graph Boundary Line File" (`UserPQCurveFile`).
    QString pqCurveFile;

    /// "Use Tessera EXTs Default": method 1 when checked, method 2 when not.
    bool useTesseraDefault() const { return m_useTesseraDefault; }
    /// Checks or clears "Use Tessera EXTs Default". Checked, the current path shown becomes the
    /// sibling program's "Retrieved Logs Path" (the run-wide current path when it has none);
    /// cleared, it becomes the default data path typed so far, as method 2 would make it.
    void setUseTesseraDefault(bool checked);

    /// "Current Data Path": shown only.
    const QString& currentDataPath() const { return m_currentDataPath; }
    /// "Current Max # of Devices": the number of meters the running program holds, 1 or 2.
    int currentMaxDevices() const { return m_settings.maxDeviceLogNumber; }

    /// "&Apply" and "&OK": writes every key of section `LocalSystem` and reads it again into
    /// the run-wide settings and the fields. On a file that cannot be written it returns false
    /// and keeps the fields as typed (so nothing is lost); `errorMessage` then says why.
    bool apply();
    /// Why the last `apply` failed; empty after one that worked.
    const QString& errorMessage() const { return m_errorMessage; }

private:
    void loadFields();

    LocalSystemSettings& m_settings;
    QString m_settingsFile;
    LocalSystemSettings::UserSettingReader m_userSetting;
    bool m_useTesseraDefault = false;
    QString m_currentDataPath;
    QString m_errorMessage;
};

} // namespace lorvane
