// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"

#include "store/WallClock.h"

#include <array>
#include <utility>

namespace lorvane {

namespace {

/// Cuts the field that starts with `tag` out of `text` (up to the next blank), keeps it in
/// `fields` as written and gives its value; a null string when the tag is not there.
QString cutField(QString& text, const QString& tag, QStringList& fields)
{
    const qsizetype start = text.indexOf(tag, 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    qsizetype end = text.indexOf(u' ', start);
    if (end < 0)
        end = text.size();
    QString value = text.mid(start + tag.size(), end - start - tag.size());
    fields << text.mid(start, end - start);
    text.remove(start, end - start);
    if (value.isNull())
        value = QStringLiteral("");
    return value;
}

int numberField(QString& text, const QString& tag, int fallback, CommandLine& command)
{
    const QString value = cutField(text, tag, command.fields);
    if (value.isNull())
        return fallback;
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok) {
        command.parseError = true;
        return fallback;
    }
    return number;
}

} // namespace

QDateTime CommandLine::recordTime(const QString& digits)
{
    if (digits.size() != 12)
        return {};
    bool ok[6] = {};
    const int month = digits.mid(0, 2).toInt(&ok[0]);
    const int day = digits.mid(2, 2).toInt(&ok[1]);
    const int year = digits.mid(4, 2).toInt(&ok[2]);
    const int hour = digits.mid(6, 2).toInt(&ok[3]);
    const int minute = digits.mid(8, 2).toInt(&ok[4]);
    const int second = digits.mid(10, 2).toInt(&ok[5]);
    for (bool part : ok) {
        if (!part)
            return {};
    }
    // Two-digit years: 00 to 29 are this century, 30 to 99 the last one.
    const QDate date(year < 30 ? 2000 + year : 1900 + year, month, day);
    const QTime time(hour, minute, second);
    if (!date.isValid() || !time.isValid())
        return {};
    return WallClock::at(date, time);
}

CommandLine CommandLine::parse(const QString& text, const QDate& today)
{
    CommandLine command;
    command.firstRecordTime = WallClock::at(today, QTime(0, 0));
    command.lastRecordTime = WallClock::at(today.addDays(-1), QTime(0, 0));

    QString rest = text;
    command.logId = numberField(rest, QStringLiteral("LOGID:"), 0, command);
    for (auto [tag, target] : {std::pair{QStringLiteral("FRT:"), &command.firstRecordTime},
                               std::pair{QStringLiteral("LRT:"), &command.lastRecordTime}}) {
        const QDateTime time = recordTime(cutField(rest, tag, command.fields));
        if (time.isValid()) {
            *target = time;
            command.timeGiven = true;
        }
    }
    command.firstRecordMs = numberField(rest, QStringLiteral("FRM:"), 0, command);
    command.lastRecordMs = numberField(rest, QStringLiteral("LRM:"), 0, command);
    command.ss = numberField(rest, QStringLiteral("SS:"), 0, command);
    command.vm = numberField(rest, QStringLiteral("VM:"), 0, command);
    const QString channels = cutField(rest, QStringLiteral("CHA:"), command.fields);
    if (!channels.isEmpty())
        command.channels = channels.split(u',');
    command.path = rest.replace(u'"', u' ').trimmed();
    return command;
}

QString CommandLine::text() const
{
    QStringList parts = fields;
    if (!path.isEmpty())
        parts << u'"' + path + u'"';
    return parts.join(u' ');
}

int CommandLine::viewButton(int logId)
{
    static constexpr std::array<int, 9> buttons = {0, 1, 3, 4, 5, 7, 8, 11, 12};
    if (logId < 1 || logId > static_cast<int>(buttons.size()))
        return -1;
    return buttons[static_cast<size_t>(logId - 1)];
}

QList<qint32> CommandLine::channelIds() const
{
    QList<qint32> ids;
    for (const QString& channel : channels) {
        bool ok = false;
        const qint32 id = channel.trimmed().toInt(&ok);
        if (ok)
            ids << id;
        if (ids.size() == mostChannels)
            break;
    }
    return ids;
}

} // namespace lorvane
