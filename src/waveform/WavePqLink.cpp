// SPDX-License-Identifier: GPL-3.0-or-later
#include "WavePqLink.h"

#include "WaveformRecord.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "query/engine/EventCellText.h"
#include "store/StampedTime.h"

#include <QLocale>

namespace lorvane {

namespace {

QString stamp(const SqlStatement& row, const char* clock, const char* ms)
{
    const QDateTime time = QDateTime::fromString(row.value(QString::fromLatin1(clock)).toString(),
                                                 QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return StampedTime(time, row.value(QString::fromLatin1(ms)).toDouble(), 0)
        .text(QStringLiteral("yyyy-MM-dd HH:mm:ss"), QLocale::c(),
              StampedTime::Fraction::TenthMilliseconds);
}

} // namespace

std::optional<WavePqEvent> WavePqLink::find(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                            const WaveformRecord& record)
{
    const QString table = numbers.sliceTable(QStringLiteral("PQLog_"));
    if (!scratch.tables().contains(table))
        return std::nullopt;
    // A split-log meter's PQ records come from another file of the query than its captures:
    // every file of the capture's meter counts.
    QStringList devices;
    for (const qint64 device : EventCellText(scratch, numbers, {}).sameMeter(record.deviceIndex))
        devices << QString::number(device);
    SqlStatement row = scratch.prepare(
        QStringLiteral("SELECT * FROM %1 WHERE [DeviceIndex] IN (%2) AND [WaveformLink]<>0 AND "
                       "[SWNumber]<=? AND [EWNumber]>=? ORDER BY [StartDate/Time], [Startms]")
            .arg(SqlIdentifier::quote(table), devices.join(QLatin1Char(','))));
    row.bindAll({record.waveformNumber, record.waveformNumber});
    if (!row.next())
        return std::nullopt;
    WavePqEvent event;
    event.start = stamp(row, "StartDate/Time", "Startms");
    event.end = stamp(row, "EndDate/Time", "Endms");
    event.durationMs = row.value(QStringLiteral("Duration")).toString();
    event.channel = row.value(QStringLiteral("ChannelName")).toString();
    event.condition = row.value(QStringLiteral("ConditionName")).toString();
    event.value = QString::number(row.value(QStringLiteral("PQValue")).toDouble(), 'f', 2);
    event.percentOfFullScale = QString::number(row.value(QStringLiteral("PQ%")).toDouble(), 'f', 2);
    // The start and end samples count in the capture of the first and the last number.
    if (row.value(QStringLiteral("SWNumber")).toInt() == record.waveformNumber)
        event.startSample = row.value(QStringLiteral("SSample")).toInt();
    if (row.value(QStringLiteral("EWNumber")).toInt() == record.waveformNumber)
        event.endSample = row.value(QStringLiteral("ESample")).toInt();
    return event;
}

} // namespace lorvane
