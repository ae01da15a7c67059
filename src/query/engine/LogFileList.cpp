// SPDX-License-Identifier: GPL-3.0-or-later
#include "LogFileList.h"

#include "query/selection/SplitLogMeter.h"

#include <algorithm>

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

LogFileList::CaptureFiles LogFileList::withPqRecords(const QList<LogFileEntry>& files)
{
    CaptureFiles out;
    out.pq = expand(files, pqFileOnlyKind);
    out.captures = expand(files, int(LogKind::Waveform));
    out.all = out.pq;
    for (const LogFileEntry& entry : std::as_const(out.captures)) {
        if (std::none_of(out.all.cbegin(), out.all.cend(),
                         [&](const LogFileEntry& known) { return known.dbPath == entry.dbPath; }))
            out.all << entry;
    }
    for (int i = 0; i < out.all.size(); ++i)
        out.all[i].deviceIndex = i;
    // Each part takes the index of its file in the whole list.
    for (QList<LogFileEntry>* part : {&out.pq, &out.captures}) {
        for (LogFileEntry& entry : *part) {
            for (const LogFileEntry& known : std::as_const(out.all)) {
                if (known.dbPath == entry.dbPath)
                    entry.deviceIndex = known.deviceIndex;
            }
        }
    }
    return out;
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
