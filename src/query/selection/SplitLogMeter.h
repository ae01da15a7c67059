// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane {

/// The split-log meter (device type 5): one database per log under a Device Master Log
/// `{dir}/{name}.dml`, at `{dir}/logs/{LOGNAME}/{LOGNAME}.db`.
class SplitLogMeter
{
public:
    static constexpr int deviceTypeId = 5;
    static constexpr int systemEventLog = 11;

    /// `LOGNAME` of a log number; empty for a number outside the table.
    static QString logName(int logNumber);
    /// The eighteen log numbers in the order a query reads them.
    static const QList<int>& allLogs();
    /// `{folder}/logs/{LOGNAME}/{LOGNAME}.db` for the folder of the `.dml` file.
    static QString logFilePath(const QString& dmlFolder, int logNumber);
    /// The file through which the meter is opened: the `SYSTEM_EVENT` database.
    static QString systemEventPath(const QString& dmlPath);
    /// The `.dml` folder of a log database path (the path with its last two folders removed).
    static QString dmlFolderOfLogFile(const QString& logFilePath);
    /// The lower-cased path ends with ".dml".
    static bool isDeviceMasterLog(const QString& path);
};

} // namespace lorvane
