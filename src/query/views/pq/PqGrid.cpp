// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqGrid.h"

#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/EventCellText.h"
#include "query/engine/GridCellText.h"
#include "query/views/waveform/WaveformGrid.h"

namespace lorvane {

QStringList PqGrid::columns()
{
    return {userText("403010", "Start Date/Time"),
            userText("403011", "End Date/Time"),
            userText("403012", "Start Date/Time mode"),
            userText("403013", "End Date/Time mode"),
            userText("403033", "Duration ms"),
            userText("403015", "Device"),
            userText("403038", "Device Index"),
            userText("403070", "Condition"),
            userText("403071", "Channel"),
            userText("403072", "Channel ID"),
            userText("403020", "Value"),
            userText("403073", "% of Full Scale"),
            userText("403074", "Waveforms"),
            userText("403075", "Condition Code"),
            userText("403076", "Start Waveform #"),
            userText("403077", "End Waveform #"),
            userText("403078", "Start Sample #"),
            userText("403079", "End Sample #"),
            userText("403056", "DL Index"),
            userText("403057", "Record Index")};
}

QString PqGrid::conditionKey(const QString& name)
{
    for (const QString& key : {QStringLiteral("SURGE"), QStringLiteral("SAG"),
                               QStringLiteral("START"), QStringLiteral("END")}) {
        if (name.contains(key, Qt::CaseInsensitive))
            return key;
    }
    return {};
}

GridTable PqGrid::fill(SqliteDatabase& db, const QueryNumbers& numbers, bool descending,
                       const QString& dataFormat, const QList<QPair<qint64, qint64>>& missing)
{
    const EventCellText cells(db, numbers, dataFormat);
    const QString dir = descending ? QStringLiteral(" DESC") : QStringLiteral(" ASC");
    const QString order = EventCellText::orderBy(
        LogKind::PowerQuality, QString(), descending,
        QStringLiteral("[EndDate/Time]%1, [Endms]%1, [DeviceIndex] ASC, [ChannelID] ASC").arg(dir));
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT * FROM %1 ORDER BY %2")
            .arg(SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("PQLog_"))), order));

    GridTable grid;
    grid.caption = userText("403005", "Show PQs");
    grid.columns = columns();
    grid.pictureColumn = waveformsColumn;
    const auto text = [&select](const char* column) {
        return select.value(QString::fromLatin1(column)).toString();
    };
    const auto number = [&select, &cells](const char* column) {
        const QVariant value = select.value(QString::fromLatin1(column));
        return value.isNull() ? QString() : cells.value(value.toDouble());
    };
    const auto tenth = StampedTime::Fraction::TenthMilliseconds;
    while (select.next()) {
        const qint64 device = select.value(QStringLiteral("DeviceIndex")).toLongLong();
        const qint64 recCounter = select.value(QStringLiteral("RecCounter")).toLongLong();
        const double startMs = select.value(QStringLiteral("Startms")).toDouble();
        grid.rows << QStringList{cells.stamp(text("StartDate/Time"), startMs, tenth),
                                 cells.stamp(text("EndDate/Time"),
                                             select.value(QStringLiteral("Endms")).toDouble(),
                                             tenth),
                                 text("SDTmode"),
                                 text("EDTmode"),
                                 GridCellText::value(select.value(QStringLiteral("Duration"))),
                                 cells.deviceName(device),
                                 QString::number(device),
                                 text("ConditionName"),
                                 text("ChannelName"),
                                 text("ChannelID"),
                                 number("PQValue"),
                                 number("PQ%"),
                                 QString(),
                                 text("ConditionCode"),
                                 text("SWNumber"),
                                 text("EWNumber"),
                                 text("SSample"),
                                 text("ESample"),
                                 text("Index"),
                                 QString::number(recCounter)};
        grid.rowKeys << QVariantMap{
            {QStringLiteral("DeviceIndex"), device},
            {QStringLiteral("Index"), select.value(QStringLiteral("Index"))},
            {QStringLiteral("RecCounter"), recCounter},
            {QStringLiteral("SWNumber"), select.value(QStringLiteral("SWNumber"))},
            {QStringLiteral("EWNumber"), select.value(QStringLiteral("EWNumber"))},
            {QStringLiteral("StartDateTime"), text("StartDate/Time")},
            {QStringLiteral("Startms"), startMs},
            {QStringLiteral("Condition"), text("ConditionName")},
            {QStringLiteral("CaptureMissing"),
             missing.contains(QPair<qint64, qint64>(device, recCounter))}};
        const qint64 link = select.value(QStringLiteral("WaveformLink")).toLongLong();
        grid.rowPictures << (link != 0 ? QStringLiteral("Wave") : QString());
        grid.rowConditions << conditionKey(text("ConditionName"));
    }
    return grid;
}

GridTable PqGrid::listWaveforms(SqliteDatabase& db, const QueryNumbers& numbers,
                                const QVariantMap& keys, bool descending, const QString& dataFormat)
{
    const EventCellText cells(db, numbers, dataFormat);
    QStringList devices;
    for (qint64 device : cells.sameMeter(keys.value(QStringLiteral("DeviceIndex")).toLongLong()))
        devices << QString::number(device);
    QString condition =
        QStringLiteral("[Index] = ? AND [DeviceIndex] IN (%1)").arg(devices.join(QLatin1Char(',')));
    QVariantList values{keys.value(QStringLiteral("Index"))};
    const QVariant first = keys.value(QStringLiteral("SWNumber"));
    const QVariant last = keys.value(QStringLiteral("EWNumber"));
    if (!first.isNull() && first.isValid()) {
        condition += QStringLiteral(" AND [OrigWNumber] >= ?");
        values << first;
    }
    if (!last.isNull() && last.isValid()) {
        condition += QStringLiteral(" AND [OrigWNumber] <= ?");
        values << last;
    }
    return WaveformGrid::fill(db, numbers, descending, 0, dataFormat, condition, values);
}

} // namespace lorvane
