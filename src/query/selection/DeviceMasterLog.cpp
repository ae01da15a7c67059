// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeviceMasterLog.h"

#include "platform/UserText.h"
#include "store/MeterDatabase.h"

#include <QDir>

namespace lorvane {

namespace {

struct Log
{
    const char* id;
    const char* displayName;
    const char* logName;
};

const Log logs[DeviceMasterLog::logCount] = {
    {"301050", "Historical 1", "INTERVAL_1"},
    {"301051", "Historical 2", "INTERVAL_2"},
    {"301052", "Historical 3", "INTERVAL_3"},
    {"301053", "Historical 4", "INTERVAL_4"},
    {"301054", "Historical 5", "INTERVAL_5"},
    {"301055", "Historical 6", "INTERVAL_6"},
    {"301056", "Historical 7", "INTERVAL_7"},
    {"301057", "Historical 8", "INTERVAL_8"},
    {"301058", "Event Triggered", "EVENT_TRIGGERED"},
    {"301059", "Alarm (Limits)", "LIMIT_LOG"},
    {"301060", "Status Change (Digital Input)", "DIGITAL_INPUT"},
    {"301061", "Relay (Digital Output)", "DIGITAL_OUTPUT"},
    {"301062", "Flicker", "FLICKER"},
    {"301063", "System Event", "SYSTEM_EVENT"},
    {"301064", "PQ", "PQ_LOG"},
    {"301065", "Waveform", "WAVEFORM"},
    {"301066", "Transient", "TRANSIENT"},
};

bool inTable(int index)
{
    return index >= 0 && index < DeviceMasterLog::logCount;
}

QString logPath(const QString& folder, const QString& logName)
{
    return folder + QStringLiteral("/logs/") + logName + QLatin1Char('/') + logName +
           QStringLiteral(".db");
}

} // namespace

DeviceMasterLog::SplitPath DeviceMasterLog::split_file_path(const QString& path)
{
    qsizetype cut = path.lastIndexOf(QLatin1Char('\\'));
    if (cut < 0)
        cut = path.lastIndexOf(QLatin1Char('/'));
    if (cut < 0)
        return {QStringLiteral("."), path};
    return {path.left(cut), path.mid(cut + 1)};
}

QString DeviceMasterLog::displayName(int index)
{
    if (!inTable(index))
        return userText("301067", "None");
    return userText(logs[index].id, logs[index].displayName);
}

QString DeviceMasterLog::statusText(Status status)
{
    switch (status) {
    case Status::Available:
        return userText("301068", "Available");
    case Status::NoLogData:
        return userText("301069", "No Log Data");
    case Status::NotAvailable:
        break;
    }
    return userText("301070", "Not Available");
}

void DeviceMasterLog::init(const QString& dmlPath)
{
    m_folder = split_file_path(dmlPath).folder;
    m_rows.clear();
    const QStringList folders =
        QDir(m_folder + QStringLiteral("/logs")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (int i = 0; i < logCount; ++i) {
        Row row{displayName(i), QString::fromLatin1(logs[i].logName), Status::NotAvailable};
        if (folders.contains(row.logName)) {
            try {
                MeterDatabase probe(logPath(m_folder, row.logName));
                row.status = Status::Available;
            } catch (const std::exception&) {
                row.status = Status::NoLogData;
            }
        }
        m_rows << row;
    }
}

QString DeviceMasterLog::selectedLabel(int index)
{
    if (!inTable(index))
        return userText("301071", "No Log Selected");
    return displayName(index);
}

QString DeviceMasterLog::selectedPath(int index) const
{
    if (!inTable(index))
        return {};
    return logPath(m_folder, QString::fromLatin1(logs[index].logName));
}

} // namespace lorvane
