// SPDX-License-Identifier: GPL-3.0-or-later
#include "DefaultSelection.h"

#include "platform/ProfileFile.h"
#include "store/WallClock.h"

#include <QList>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace lorvane {

namespace {

const QString sectionName = QStringLiteral("DefaultSetting");

QString dataKey(int row)
{
    return QStringLiteral("Data_%1").arg(row + 1);
}

bool writeAll(const QString& settingsFile, const QList<std::pair<QString, QString>>& entries)
{
    ProfileFile file(settingsFile);
    return std::all_of(entries.begin(), entries.end(), [&](const auto& entry) {
        return file.writeString(sectionName, entry.first, entry.second);
    });
}

QString formatted(const QDateTime& dateTime)
{
    return dateTime.isValid() ? dateTime.toString(QLatin1String(DefaultSelection::dateTimeFormat))
                              : QString();
}

} // namespace

const std::array<QString, 6>& DefaultSelection::timeOptionNames()
{
    static const std::array<QString, 6> names = {QStringLiteral("BETWEEN"), QStringLiteral("HOUR"),
                                                 QStringLiteral("DAY"),     QStringLiteral("WEEK"),
                                                 QStringLiteral("MONTH"),   QStringLiteral("YEAR")};
    return names;
}

QDateTime DefaultSelection::parseDateTime(const QString& text)
{
    // Taken apart into its fields and rebuilt, so that a date the file holds in a shorter form
    // ("3/4/2024 9:05") still reads.
    static const QRegularExpression pattern(QStringLiteral(
        "^(\\d{1,2})/(\\d{1,2})/(\\d{4})(?:\\s+(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?)?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    const auto field = [&](int index) { return match.captured(index).toInt(); };
    const QDate date(field(3), field(1), field(2));
    const QTime time(field(4), field(5), field(6));
    if (!date.isValid() || !time.isValid())
        return {};
    return WallClock::at(date, time);
}

void DefaultSelection::read(const QString& settingsFile)
{
    const ProfileFile file(settingsFile);
    const auto text = [&](const QString& key) { return file.readString(sectionName, key, {}); };
    const auto number = [&](const QString& key) {
        bool ok = false;
        const int value = text(key).toInt(&ok);
        return ok ? value : 0;
    };

    device1 = text(QStringLiteral("Device1"));
    device2 = text(QStringLiteral("Device2"));
    device1Path = text(QStringLiteral("Device1Path"));
    device2Path = text(QStringLiteral("Device2Path"));
    for (int row = 0; row < dataPointRows; ++row)
        dataIds[row] = number(dataKey(row));

    const auto& names = timeOptionNames();
    const auto option =
        std::find(names.begin(), names.end(), text(QStringLiteral("TimeOption")).toUpper());
    timeOption = option == names.end() ? noTimeOption : int(option - names.begin());
    timeInterval = number(QStringLiteral("TimeInterval"));
    startDateTime = parseDateTime(text(QStringLiteral("StartDateTime")));
    endDateTime = parseDateTime(text(QStringLiteral("EndDateTime")));
}

bool DefaultSelection::writeDevices(const QString& settingsFile) const
{
    return writeAll(settingsFile, {{QStringLiteral("Device1"), device1},
                                   {QStringLiteral("Device2"), device2},
                                   {QStringLiteral("Device1Path"), device1Path},
                                   {QStringLiteral("Device2Path"), device2Path}});
}

bool DefaultSelection::writeDataPoints(const QString& settingsFile) const
{
    QList<std::pair<QString, QString>> entries;
    for (int row = 0; row < dataPointRows; ++row)
        entries.append({dataKey(row), QString::number(dataIds[row])});
    return writeAll(settingsFile, entries);
}

bool DefaultSelection::writeTimeRange(const QString& settingsFile) const
{
    const bool known = timeOption >= 0 && timeOption < int(timeOptionNames().size());
    return writeAll(settingsFile, {{QStringLiteral("TimeOption"),
                                    known ? timeOptionNames()[timeOption] : QString()},
                                   {QStringLiteral("TimeInterval"), QString::number(timeInterval)},
                                   {QStringLiteral("StartDateTime"), formatted(startDateTime)},
                                   {QStringLiteral("EndDateTime"), formatted(endDateTime)}});
}

bool DefaultSelection::write(const QString& settingsFile) const
{
    return writeDevices(settingsFile) && writeDataPoints(settingsFile) &&
           writeTimeRange(settingsFile);
}

} // namespace lorvane
