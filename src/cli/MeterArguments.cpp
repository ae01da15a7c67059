// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterArguments.h"

#include "CliOutput.h"
#include "query/selection/MeterInventory.h"
#include "query/selection/SplitLogMeter.h"
#include "store/MeterDatabase.h"
#include "store/WallClock.h"

#include <QFileInfo>

namespace lorvane::cli {

std::optional<QDateTime> MeterArguments::time(const QString& text, bool end)
{
    // Date and time are read apart and joined zone-free: read as this PC's local time, a
    // meter reading inside its spring-forward gap would move or vanish.
    const QString trimmed = text.trimmed();
    const QDate day = QDate::fromString(trimmed.left(10), QStringLiteral("yyyy-MM-dd"));
    if (!day.isValid())
        return std::nullopt;
    if (trimmed.size() == 10)
        return WallClock::at(day, end ? QTime(23, 59, 59) : QTime(0, 0, 0));
    const QChar separator = trimmed.size() == 19 ? trimmed.at(10) : QChar();
    if (separator != QLatin1Char(' ') && separator != QLatin1Char('T'))
        return std::nullopt;
    const QTime time = QTime::fromString(trimmed.mid(11), QStringLiteral("HH:mm:ss"));
    if (!time.isValid())
        return std::nullopt;
    return WallClock::at(day, time);
}

std::optional<LogFileEntry> MeterArguments::meter(const QString& given, qint32 deviceIndex)
{
    // A split-log meter is opened through its Device Master Log, as in the window.
    const QString path =
        SplitLogMeter::isDeviceMasterLog(given) ? SplitLogMeter::systemEventPath(given) : given;
    if (!QFileInfo(path).isFile()) {
        CliOutput::error(QStringLiteral("file not found: ") + path);
        return std::nullopt;
    }
    MeterDatabase meter(path);
    const DeviceRecord record = MeterInventory::read(meter, deviceIndex);
    LogFileEntry entry;
    entry.dbPath = QFileInfo(path).absoluteFilePath();
    entry.deviceTypeId = record.deviceTypeId;
    entry.hardwareName = record.hardwareName;
    entry.used = true;
    entry.deviceIndex = deviceIndex;
    return entry;
}

} // namespace lorvane::cli
