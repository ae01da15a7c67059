// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphRecords.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserText.h"
#include "query/engine/QueryCatalog.h"
#include "store/DataPointLabel.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"

#include <QHash>
#include <algorithm>

namespace lorvane {

namespace {

/// The value tables of every slice of the query that exist, in slice order.
QStringList sliceTables(SqliteDatabase& db, qint64 query)
{
    QStringList out;
    const QString subQueries = QueryNumbers{query, -1}.table(QStringLiteral("HistSubQuery_"));
    if (!db.tableExists(subQueries))
        return out;
    SqlStatement select = db.prepare(QStringLiteral("SELECT SubQIndex FROM %1 ORDER BY SubQIndex")
                                         .arg(SqlIdentifier::quote(subQueries)));
    while (select.next()) {
        const QString table =
            QueryNumbers{query, select.integer(0)}.sliceTable(QStringLiteral("HistLog_"));
        if (db.tableExists(table))
            out << table;
    }
    return out;
}

qint64 meterTime(const QString& stored, qint64 ms)
{
    return StampedTime::parseClock(stored).toMSecsSinceEpoch() + ms;
}

} // namespace

QList<PGraphChoice> PGraphRecords::choices(TempQueryDatabase& scratch, qint64 query,
                                           SqliteDatabase* dictionary)
{
    SqliteDatabase& db = scratch.database();
    QHash<qint64, QString> meters;
    {
        SqlStatement select =
            db.prepare(QStringLiteral("SELECT DeviceIndex, HardwareName FROM %1")
                           .arg(SqlIdentifier::quote(
                               QueryNumbers{query, -1}.table(QStringLiteral("LogDevices_")))));
        while (select.next())
            meters.insert(select.integer(0), select.text(1));
    }
    QList<PGraphChoice> out;
    for (const QString& table : sliceTables(db, query)) {
        SqlStatement select = db.prepare(
            QStringLiteral("SELECT DISTINCT DeviceIndex, DataID FROM %1 WHERE Value IS NOT NULL")
                .arg(SqlIdentifier::quote(table)));
        while (select.next()) {
            PGraphChoice choice{select.integer(0), qint32(select.integer(1)), {}};
            if (!out.contains(choice))
                out << choice;
        }
    }
    std::sort(out.begin(), out.end(), [](const PGraphChoice& a, const PGraphChoice& b) {
        return std::pair(a.deviceIndex, a.dataId) < std::pair(b.deviceIndex, b.dataId);
    });
    for (PGraphChoice& choice : out) {
        choice.name = dictionary ? DataPointLabel::text(*dictionary, choice.dataId)
                                 : QString::number(choice.dataId);
        if (meters.size() > 1)
            choice.name += QStringLiteral(" - ") + meters.value(choice.deviceIndex);
    }
    return out;
}

QList<PGraphItem> PGraphRecords::load(TempQueryDatabase& scratch, qint64 query,
                                      const QList<PGraphChoice>& chosen, LoadProgress* progress)
{
    SqliteDatabase& db = scratch.database();
    QList<PGraphItem> items;
    for (const PGraphChoice& choice : chosen)
        items << PGraphItem{choice.deviceIndex, choice.dataId, choice.name, {}, {}};
    const QStringList tables = sliceTables(db, query);
    if (progress)
        progress->status(userText("802001", "Please Wait . . ."));
    for (int t = 0; t < tables.size(); ++t) {
        if (progress) {
            if (progress->cancelRequested())
                break;
            progress->advance(t, tables.size());
        }
        SqlStatement select = db.prepare(
            QStringLiteral("SELECT [Date/Time], ms, Value FROM %1 WHERE DeviceIndex = ? AND "
                           "DataID = ? AND Value IS NOT NULL ORDER BY rowid")
                .arg(SqlIdentifier::quote(tables.at(t))));
        for (PGraphItem& item : items) {
            select.reset();
            select.bindAll({item.deviceIndex, item.dataId});
            while (select.next())
                item.records << PGraphRecord{meterTime(select.text(0), select.integer(1)),
                                             select.real(2)};
        }
    }
    for (PGraphItem& item : items) {
        // Stable, so that of two records at one instant the first read stays first.
        std::stable_sort(
            item.records.begin(), item.records.end(),
            [](const PGraphRecord& a, const PGraphRecord& b) { return a.time < b.time; });
        item.records.erase(std::unique(item.records.begin(), item.records.end(),
                                       [](const PGraphRecord& a, const PGraphRecord& b) {
                                           return a.time == b.time;
                                       }),
                           item.records.end());
    }
    return items;
}

} // namespace lorvane
