// SPDX-License-Identifier: GPL-3.0-or-later
#include "VoltageEvents.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "store/LogKind.h"
#include "store/MeterDatabase.h"
#include "store/SchemaCatalog.h"
#include "store/StampedTime.h"

#include <algorithm>

namespace lorvane {

namespace {

QString step()
{
    return QStringLiteral("RunPQReport");
}

/// The three classes of one day table in one statement, sorted by start. The shared columns
/// and the condition and channel filter are the same for each class.
QString classStatement(const QString& table)
{
    const QString t = SqlIdentifier::quote(table);
    const QString columns =
        QStringLiteral("SELECT %1.Duration, '%2' AS thisType, %1.[StartDate/Time], "
                       "%1.[EndDate/Time], %1.PQValue, %1.[PQ%], %1.ChannelName From %1 ");
    const QString common = QStringLiteral(
        " and (conditioncode = 2) and ChannelName IN ('Van','Vbn','Vcn','Vab','Vbc','Vca')) ");
    return columns.arg(t, QStringLiteral("VOD")) +
           QStringLiteral("Where (((%1.Duration) > 0) And ((%1.[PQ%]) > 1)").arg(t) + common +
           QStringLiteral("Union ") + columns.arg(t, QStringLiteral("SIV")) +
           QStringLiteral("WHERE (((%1.Duration) BETWEEN 1 AND 180000) AND ((%1.[PQ%])<1)").arg(t) +
           common + QStringLiteral("Union ") + columns.arg(t, QStringLiteral("LIV")) +
           QStringLiteral("WHERE (((%1.Duration) > 180000) AND ((%1.[PQ%])<1)").arg(t) + common +
           QStringLiteral("ORDER BY 3 ASC");
}

VoltageEvent::Type typeOf(const QString& key)
{
    if (key == QLatin1String("SIV"))
        return VoltageEvent::Type::SIV;
    if (key == QLatin1String("LIV"))
        return VoltageEvent::Type::LIV;
    return VoltageEvent::Type::VOD;
}

} // namespace

QString VoltageEvent::typeKey(Type type)
{
    switch (type) {
    case Type::VOD:
        return QStringLiteral("VOD");
    case Type::SIV:
        return QStringLiteral("SIV");
    case Type::LIV:
        break;
    }
    return QStringLiteral("LIV");
}

QList<VoltageEvent> VoltageEvents::read(const QString& pqLogFile, const QDateTime& start,
                                        const QDateTime& end, LoadProgress& progress)
{
    MeterDatabase meter(pqLogFile, step());
    return meter.guarded(step(), [&] {
        QList<VoltageEvent> events;
        SqliteDatabase& db = meter.db();
        const QString master = SchemaCatalog::masterTable(int(LogKind::PowerQuality));
        if (!db.tableExists(master))
            return events;
        QList<qint64> tables;
        SqlStatement days = db.prepare(
            QStringLiteral("SELECT LogTablesIndex, HTable FROM %1 WHERE [Date/Time] >= ? And "
                           "[Date/Time] <= ? ORDER BY [Date/Time]")
                .arg(SqlIdentifier::quote(master)));
        days.bindAll({StampedTime::storedText(start), StampedTime::storedText(end)});
        while (days.next()) {
            // A clear table flag means the day has no table of events.
            if (days.isNull(1) || days.integer(1) != 0)
                tables << days.integer(0);
        }
        progress.status(userText("610040", "Processing PQ Values for the current date"));
        for (qsizetype i = 0; i < tables.size(); ++i) {
            if (progress.cancelRequested())
                break;
            progress.advance(i, tables.size());
            const QString table = SchemaCatalog::dayTable(LogKind::PowerQuality, tables.at(i));
            SqlStatement select = db.prepare(classStatement(table));
            while (select.next()) {
                VoltageEvent event;
                event.type = typeOf(select.text(1));
                event.start = select.text(2);
                event.end = select.text(3);
                event.minValue = select.real(4);
                event.minPercent = select.real(5);
                event.channel = select.text(6);
                events << event;
            }
        }
        return events;
    });
}

int VoltageEvents::count(const QList<VoltageEvent>& events, VoltageEvent::Type type)
{
    return int(std::count_if(events.begin(), events.end(),
                             [type](const VoltageEvent& e) { return e.type == type; }));
}

} // namespace lorvane
