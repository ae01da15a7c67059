// SPDX-License-Identifier: GPL-3.0-or-later
#include "LogFileList.h"

#include "query/selection/SplitLogMeter.h"

namespace lorvane {

QList<LogFileEntry> LogFileList::expand(const QList<LogFileEntry>& files, int queryKind)
{
    QList<LogFileEntry> result;
    const bool split =
        !files.isEmpty() && files.first().deviceTypeId == SplitLogMeter::deviceTypeId;
    for (const LogFileEntry& entry : files) {
        if (!split) {
            result.append(entry);
            continue;
        }
        if (entry.dbPath.isEmpty())
            continue;
        QList<int> logs;
        if (queryKind == static_cast<int>(LogKind::Waveform))
            logs = {10, 25};
        else if (queryKind == pqFileOnlyKind)
            logs = {13};
        else
            logs = SplitLogMeter::allLogs();
        const QString folder = SplitLogMeter::dmlFolderOfLogFile(entry.dbPath);
        for (int log : logs) {
            LogFileEntry part = entry;
            part.dbPath = SplitLogMeter::logFilePath(folder, log);
            result.append(part);
        }
    }
    for (int i = 0; i < result.size(); ++i)
        result[i].deviceIndex = i;
    return result;
}

const LogFileEntry* LogFileList::fileOfDevice(const QList<LogFileEntry>& files, qint64 deviceIndex)
{
    for (const LogFileEntry& entry : files) {
        if (entry.deviceIndex + 1 == deviceIndex)
            return &entry;
    }
    return nullptr;
}

} // namespace lorvane
