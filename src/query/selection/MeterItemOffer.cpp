// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterItemOffer.h"

#include "platform/SqlIdentifier.h"
#include "platform/StorageError.h"
#include "query/engine/LogFileList.h"
#include "store/LogKind.h"
#include "store/MeterDatabase.h"
#include "store/SchemaCatalog.h"

#include <QFileInfo>
#include <QSet>
#include <exception>

namespace lorvane {

namespace {

/// The places of one settings table, each once, added to `channels` unless already offered.
void readChannels(SqliteDatabase& db, const QString& table, const QString& indexColumn,
                  const QString& labelColumn, QList<MeterItemOffer::Channel>& channels,
                  QSet<qint64>& offered)
{
    if (!db.tableExists(table))
        return;
    SqlStatement select =
        db.prepare(QStringLiteral("SELECT [ModuleIndex], %1, [ModuleLabel], %2 FROM %3 ORDER BY "
                                  "[ModuleIndex], %1, rowid")
                       .arg(SqlIdentifier::quote(indexColumn), SqlIdentifier::quote(labelColumn),
                            SqlIdentifier::quote(table)));
    while (select.next()) {
        const MeterItems::Channel place{qint32(select.integer(0)), qint32(select.integer(1))};
        const qint64 key = (qint64(place.module) << 32) ^ quint32(place.index);
        if (offered.contains(key))
            continue;
        offered.insert(key);
        channels.append({place, select.text(2).trimmed(), select.text(3).trimmed()});
    }
}

/// The data ids of the first hour table of the energy/demand log's first day that has one.
QList<qint64> demandIdsOf(SqliteDatabase& db)
{
    const QString master = QStringLiteral("AllEnergyDemandLogs");
    if (!db.tableExists(master))
        return {};
    SqlStatement days = db.prepare(QStringLiteral("SELECT * FROM %1 ORDER BY [Date/Time], rowid")
                                       .arg(SqlIdentifier::quote(master)));
    while (days.next()) {
        const qint64 logTablesIndex = days.value(QStringLiteral("LogTablesIndex")).toLongLong();
        for (int hour = 0; hour < 24; ++hour) {
            if (days.value(QStringLiteral("Hour_%1").arg(hour)).toLongLong() == 0)
                continue;
            const QString table =
                SchemaCatalog::hourValueTable(LogKind::Demand, logTablesIndex, hour);
            if (!db.tableExists(table))
                continue;
            QList<qint64> ids;
            SqlStatement select =
                db.prepare(QStringLiteral("SELECT DISTINCT [DataID] FROM %1 WHERE [DataID] IS "
                                          "NOT NULL ORDER BY [DataID]")
                               .arg(SqlIdentifier::quote(table)));
            while (select.next())
                ids.append(select.integer(0));
            return ids;
        }
    }
    return {};
}

} // namespace

MeterItemOffer MeterItemOffer::read(const LogFileEntry& meter)
{
    MeterItemOffer offer;
    QSet<qint64> demand;
    QSet<qint64> inputs;
    QSet<qint64> relays;
    for (const LogFileEntry& file : LogFileList::expand({meter}, int(LogKind::Snapshots))) {
        if (!QFileInfo(file.dbPath).isFile())
            continue;
        try {
            MeterDatabase database(file.dbPath);
            SqliteDatabase& db = database.db();
            readChannels(db, QStringLiteral("InputLogDataItem"), QStringLiteral("InputIndex"),
                         QStringLiteral("InputLabel"), offer.inputs, inputs);
            readChannels(db, QStringLiteral("RelayLogDataItem"), QStringLiteral("RelayIndex"),
                         QStringLiteral("RelayLabel"), offer.relays, relays);
            for (qint64 id : demandIdsOf(db))
                demand.insert(id);
        } catch (const std::exception&) {
            // A log file that will not open or lacks a column offers nothing; the selection
            // check reports a meter that cannot be read when a view is pressed.
        }
    }
    offer.demandIds = demand.values();
    std::sort(offer.demandIds.begin(), offer.demandIds.end());
    return offer;
}

MeterItemOffer::Ticks MeterItemOffer::ticksOf(const MeterItems& choice) const
{
    const auto channelTicks = [](const QList<Channel>& offered,
                                 const QList<MeterItems::Channel>& chosen) {
        QList<bool> ticks;
        for (const Channel& channel : offered)
            ticks << (chosen.isEmpty() || chosen.contains(channel.place));
        return ticks;
    };
    Ticks ticks{channelTicks(inputs, choice.inputs), channelTicks(relays, choice.relays), {}};
    for (qint64 id : demandIds)
        ticks.demand << (choice.demandIds.isEmpty() || choice.demandIds.contains(id));
    return ticks;
}

MeterItems MeterItemOffer::choose(const Ticks& ticks) const
{
    const auto all = [](const QList<bool>& list) {
        return !list.contains(false) || !list.contains(true);
    };
    MeterItems choice;
    if (!all(ticks.inputs)) {
        for (qsizetype i = 0; i < inputs.size(); ++i)
            if (ticks.inputs.value(i))
                choice.inputs << inputs.at(i).place;
    }
    if (!all(ticks.relays)) {
        for (qsizetype i = 0; i < relays.size(); ++i)
            if (ticks.relays.value(i))
                choice.relays << relays.at(i).place;
    }
    if (!all(ticks.demand)) {
        for (qsizetype i = 0; i < demandIds.size(); ++i)
            if (ticks.demand.value(i))
                choice.demandIds << demandIds.at(i);
    }
    return choice;
}

} // namespace lorvane
