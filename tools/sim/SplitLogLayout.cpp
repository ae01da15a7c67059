// SPDX-License-Identifier: GPL-3.0-or-later
#include "SplitLogLayout.h"

#include <QDir>
#include <QFileInfo>

namespace lorvane::sim {

QString SplitLogLayout::logName(int logNumber)
{
    switch (logNumber) {
    case 1:
        return QStringLiteral("INTERVAL_1");
    case 2:
        return QStringLiteral("INTERVAL_2");
    case 3:
        return QStringLiteral("LIMIT_LOG");
    case 5:
        return QStringLiteral("DIGITAL_INPUT");
    case 7:
        return QStringLiteral("DIGITAL_OUTPUT");
    case 9:
        return QStringLiteral("FLICKER");
    case 10:
        return QStringLiteral("WAVEFORM");
    case 11:
        return QStringLiteral("SYSTEM_EVENT");
    case 13:
        return QStringLiteral("PQ_LOG");
    case 16:
        return QStringLiteral("EN50160");
    case 18:
    case 19:
    case 20:
    case 21:
    case 22:
    case 23:
        return QStringLiteral("INTERVAL_%1").arg(logNumber - 15);
    case 24:
        return QStringLiteral("EVENT_TRIGGERED");
    case 25:
        return QStringLiteral("TRANSIENT");
    default:
        return {};
    }
}

QString SplitLogLayout::databasePath(const QString& dir, int logNumber)
{
    const QString name = logName(logNumber);
    return QDir(dir).filePath(QStringLiteral("logs/%1/%1.db").arg(name));
}

QString SplitLogLayout::masterLogPath(const QString& dir)
{
    const QString name = QFileInfo(QDir::cleanPath(dir)).fileName();
    return QDir(dir).filePath(name + QStringLiteral(".dml"));
}

} // namespace lorvane::sim
