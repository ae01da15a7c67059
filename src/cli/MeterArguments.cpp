// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterArguments.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "query/selection/MeterInventory.h"
#include "query/selection/SplitLogMeter.h"
#include "store/MeterDatabase.h"
#include "store/WallClock.h"

#include <QFileInfo>

namespace lorvane::cli {

std::optional<QDateTime> MeterArguments::parseTime(const QString& text, bool end)
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

int MeterArguments::takeRangeEnd(const QString& option, const QString& value, QDateTime& from,
                                 QDateTime& to)
{
    const bool end = option == QLatin1String("--to");
    const std::optional<QDateTime> time = parseTime(value, end);
    if (!time)
        return CliOutput::usage(QStringLiteral("not a time (YYYY-MM-DD[ HH:MM:SS]): ") + value);
    (end ? to : from) = *time;
    return Success;
}

std::optional<LogFileEntry> MeterArguments::open(const QString& given, int index)
{
    // A split-log meter is opened through its Device Master Log, as in the window.
    const QString path =
        SplitLogMeter::isDeviceMasterLog(given) ? SplitLogMeter::systemEventPath(given) : given;
    if (!QFileInfo(path).isFile()) {
        CliOutput::error(QStringLiteral("file not found: ") + path);
        return std::nullopt;
    }
    MeterDatabase meter(path);
    const DeviceRecord record = MeterInventory::read(meter, index);
    LogFileEntry entry;
    entry.dbPath = QFileInfo(path).absoluteFilePath();
    entry.deviceTypeId = record.deviceTypeId;
    entry.hardwareName = record.hardwareName;
    entry.used = true;
    entry.deviceIndex = index;
    return entry;
}

} // namespace lorvane::cli
