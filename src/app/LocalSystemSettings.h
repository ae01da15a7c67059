// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace lorvane {

/// The decoded values of section `LocalSystem` of the settings file, read key by key with a
/// default for each key, as at start and after the System Properties dialog wrote the file.
struct LocalSystemSettings
{
    /// Reads one of the user's application settings: (application, section, key, default).
    using UserSettingReader =
        std::function<QString(const QString&, const QString&, const QString&, const QString&)>;

    /// Bounds of `MaxDeviceLogNumber` and `TempLogRecSize`.
    static constexpr int fewestDevices = 1;
    static constexpr int mostDevices = 2;
    static constexpr int smallestRecordSize = 100;
    static constexpr int largestRecordSize = 50000;

    QString defaultPath;
    /// 0: no data path; 1: the sibling program's "Retrieved Logs Path"; 2: `defaultPath`.
    int dataPathMethod = 0;
    /// The run-wide current data path that the method decides.
    QString currentPath;
    bool autoLoadDBs = false;
    bool searchSubDirectories = false;
    int maxDeviceLogNumber = 2; ///< 1 or 2
    int tempLogRecSize = 4500;  ///< 100 to 50000 cells per grid
    QString dataFormat = QStringLiteral("0.00");
    bool showHalyxLookUp = false;
    bool useCBEMACurve = true;
    QString userPQCurveFile;
    bool useUserHalyxScaledFormats = false;

    /// Reads section `LocalSystem` of `settingsFile` over the values held now (a missing file
    /// or key takes the key's default). Numbers that do not parse read as 0 and are clamped;
    /// an unknown data format reads as "0.00"; an unknown `DefaultMethod` leaves the method and
    /// the current path as they were. `userSetting` answers method 1.
    void read(const QString& settingsFile, const UserSettingReader& userSetting);

    /// Writes every key of section `LocalSystem` of `settingsFile`, one profile call each,
    /// keeping the rest of the file. Booleans are "Yes" or "No"; `DefaultMethod` is "HalyxC"
    /// for method 1, "UserSet" for method 2 and empty for 0; the data format goes under the key
    /// form `Dataformat`. Returns false at the first key that cannot be written (the keys
    /// before it are written).
    bool write(const QString& settingsFile) const;

    /// The six data formats a user may choose, from "0" to "0.00000".
    static const QStringList& dataFormats();
    /// Clamps a `MaxDeviceLogNumber` text to 1..2 and a `TempLogRecSize` text to 100..50000.
    static int clampedNumber(const QString& text, int lowest, int highest);
    /// The format itself when it is one of "0" to "0.00000", else "0.00".
    static QString checkedDataFormat(const QString& format);
};

} // namespace lorvane
