// SPDX-License-Identifier: GPL-3.0-or-later
#include "SplitLogMeter.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace lorvane {

QString SplitLogMeter::logName(int logNumber)
{
    static const QHash<int, QString> names{
        {1, QStringLiteral("INTERVAL_1")},       {2, QStringLiteral("INTERVAL_2")},
        {3, QStringLiteral("LIMIT_LOG")},        {5, QStringLiteral("DIGITAL_INPUT")},
        {7, QStringLiteral("DIGITAL_OUTPUT")},   {9, QStringLiteral("FLICKER")},
        {10, QStringLiteral("WAVEFORM")},        {11, QStringLiteral("SYSTEM_EVENT")},
        {13, QStringLiteral("PQ_LOG")},          {16, QStringLiteral("EN50160")},
        {18, QStringLiteral("INTERVAL_3")},      {19, QStringLiteral("INTERVAL_4")},
        {20, QStringLiteral("INTERVAL_5")},      {21, QStringLiteral("INTERVAL_6")},
        {22, QStringLiteral("INTERVAL_7")},      {23, QStringLiteral("INTERVAL_8")},
        {24, QStringLiteral("EVENT_TRIGGERED")}, {25, QStringLiteral("TRANSIENT")}};
    return names.value(logNumber);
}

const QList<int>& SplitLogMeter::allLogs()
{
    static const QList<int> order{1, 2, 18, 19, 20, 21, 22, 23, 24, 3, 5, 7, 9, 10, 11, 13, 25, 16};
    return order;
}

QString SplitLogMeter::logFilePath(const QString& dmlFolder, int logNumber)
{
    const QString name = logName(logNumber);
    return QDir(dmlFolder).filePath(QStringLiteral("logs/%1/%1.db").arg(name));
}

QString SplitLogMeter::systemEventPath(const QString& dmlPath)
{
    return logFilePath(QFileInfo(dmlPath).absolutePath(), systemEventLog);
}

QString SplitLogMeter::dmlFolderOfLogFile(const QString& logFilePath)
{
    QDir folder = QFileInfo(logFilePath).absoluteDir();
    folder.cdUp();
    folder.cdUp();
    return folder.absolutePath();
}

bool SplitLogMeter::isDeviceMasterLog(const QString& path)
{
    return path.toLower().endsWith(QStringLiteral(".dml"));
}

} // namespace lorvane
