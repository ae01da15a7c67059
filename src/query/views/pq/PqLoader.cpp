// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqLoader.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/DayRowsCopy.h"
#include "query/engine/EventCellText.h"
#include "query/engine/QueryContext.h"

namespace lorvane {

DayWalk::Result PqLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                               const QueryNumbers& numbers)
{
    return DayRowsCopy::copyColumns(
        context, files, LogKind::PowerQuality, numbers.sliceTable(QStringLiteral("PQLog_")),
        QStringLiteral("StartDate/Time"), userText("303004", "Power Quality"));
}

QList<QPair<qint64, qint64>> PqLoader::linkCaptures(SqliteDatabase& db, const QueryNumbers& numbers,
                                                    LoadProgress* progress)
{
    const QString pq = SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("PQLog_")));
    const QString waves = SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("WaveformLog_")));
    const EventCellText devices(db, numbers, QString());
    struct Record
    {
        qint64 rowid;
        qint64 device;
        qint64 recCounter;
        QString start;
        double ms;
    };
    QList<Record> records;
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT rowid, [DeviceIndex], [RecCounter], [StartDate/Time], [Startms] "
                       "FROM %1 WHERE [StartDate/Time] IS NOT NULL ORDER BY rowid")
            .arg(pq));
    while (select.next()) {
        records.append({select.integer(0), select.integer(1), select.integer(2), select.text(3),
                        select.real(4)});
    }
    QList<QPair<qint64, qint64>> missing;
    qsizetype checked = 0;
    for (const Record& record : records) {
        if (progress)
            progress->advance(checked++, records.size());
        // A split-log meter keeps its captures in other files than its PQ records: any file of
        // the same meter may hold the capture.
        QStringList devicesOfMeter;
        for (qint64 device : devices.sameMeter(record.device))
            devicesOfMeter << QString::number(device);
        const bool found = db.hasRows(
            QStringLiteral("SELECT 1 FROM %1 WHERE [WTDate/Time] = ? AND abs([WTms] - ?) < 0.05 "
                           "AND [DeviceIndex] IN (%2)")
                .arg(waves, devicesOfMeter.join(QLatin1Char(','))),
            {record.start, record.ms});
        if (found) {
            db.execute(QStringLiteral("UPDATE %1 SET [WaveformLink] = -1 WHERE rowid = ?").arg(pq),
                       {record.rowid});
        } else {
            missing.append({record.device, record.recCounter});
        }
    }
    return missing;
}

} // namespace lorvane
