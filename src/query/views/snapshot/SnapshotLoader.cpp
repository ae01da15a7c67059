// SPDX-License-Identifier: GPL-3.0-or-later
#include "SnapshotLoader.h"

#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "query/engine/QueryContext.h"
#include "store/LogKind.h"
#include "store/SchemaCatalog.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"
#include "store/WallClock.h"

#include <SQLiteCpp/Database.h>

namespace lorvane {

namespace {

QString qualified(const QString& schema, const QString& table)
{
    return SqlIdentifier::quote(schema) + QLatin1Char('.') + SqlIdentifier::quote(table);
}

bool attachedTableExists(SqliteDatabase& db, const QString& schema, const QString& table)
{
    return db.hasRows(QStringLiteral("SELECT 1 FROM %1 WHERE type = 'table' AND name = ?")
                          .arg(qualified(schema, QStringLiteral("sqlite_master"))),
                      {table});
}

} // namespace

SnapshotLoader::SnapshotLoader(QueryContext& context, LogKind logKind)
    : m_context(context), m_logKind(logKind)
{
}

QString SnapshotLoader::masterTable(LogKind logKind)
{
    return logKind == LogKind::Demand ? QStringLiteral("AllEnergyDemandLogs")
                                      : QStringLiteral("AllHistoricalLogs");
}

const QList<qint64>& SnapshotLoader::idsOf(const LogFileEntry& file) const
{
    return m_logKind == LogKind::Demand ? file.items.demandIds : m_context.dataIds;
}

QString SnapshotLoader::filterSql(const QList<qint64>& ids) const
{
    QString sql;
    if (!ids.isEmpty()) {
        QStringList marks;
        for (qsizetype i = 0; i < ids.size(); ++i)
            marks << QStringLiteral("?");
        sql += QStringLiteral(" AND H.[DataID] IN (") + marks.join(QLatin1Char(',')) +
               QLatin1Char(')');
    }
    if (m_context.typeFilter != 0)
        sql += QStringLiteral(" AND HI.[TypeID] = ?");
    return sql;
}

QVariantList SnapshotLoader::filterValues(const QList<qint64>& ids) const
{
    QVariantList values;
    for (qint64 id : ids)
        values << id;
    if (m_context.typeFilter != 0)
        values << m_context.typeFilter;
    return values;
}

DayWalk::Result SnapshotLoader::load(const QueryNumbers& numbers, QList<LogFileEntry>& files,
                                     const QDateTime& from, const QDateTime& to)
{
    m_numbers = numbers;
    m_target = numbers.sliceTable(QStringLiteral("HistLog_"));
    // Whether a table of an attached file exists, and whether it has the profile index
    // column; the file's schema is a bound value, so one statement serves every hour.
    m_columnsOf = std::make_unique<SqlStatement>(m_context.scratch->database().prepare(
        QStringLiteral("SELECT count(*), coalesce(max(lower(name) = 'profileindex'), 0) FROM "
                       "pragma_table_info(?, ?)")));
    m_lastRowid = std::make_unique<SqlStatement>(m_context.scratch->database().prepare(
        QStringLiteral("SELECT coalesce(max(rowid), 0) FROM ") + SqlIdentifier::quote(m_target)));
    m_rows = 0;
    m_day = {};
    m_dayStartRowid = 0;
    m_dayStartRows = 0;
    m_cut = {};
    m_cutDay = {};
    m_bothModes = false;
    m_excludedMode = -1;
    m_lastMode = -1;
    m_formatsCopied.clear();

    SilentProgress silent;
    LoadProgress& progress = m_context.progress ? *m_context.progress : silent;
    DayWalk walk(*m_context.scratch, progress);
    const QString word = m_logKind == LogKind::Demand ? userText("302001", "demand")
                                                      : userText("302002", "snapshots");
    DayWalk::Result result =
        walk.run(files, masterTable(m_logKind), word, from, to, m_context.descending,
                 [this](const DayVisit& v) { return visit(v); });
    m_columnsOf.reset();
    m_lastRowid.reset();
    result.rows =
        m_context.scratch->database()
            .scalar(QStringLiteral("SELECT count(*) FROM ") + SqlIdentifier::quote(m_target))
            .toLongLong();
    if (m_cut.isValid()) {
        result.stopped = true;
        result.reached = m_cut;
        progress.status(userText("302003", "At") + QLatin1Char(' ') + DayWalk::timeText(m_cut) +
                        QStringLiteral(", ") + userText("302004", "you have") + QLatin1Char(' ') +
                        QString::number(result.rows) + QLatin1Char(' ') +
                        userText("302005", "data points") + QLatin1Char('.'));
    }
    return result;
}

VisitResult SnapshotLoader::visit(const DayVisit& v)
{
    if (m_cut.isValid() && v.row.day != m_cutDay)
        return VisitResult{0, true, m_cut};
    copyScaledFormats(v);
    if (v.row.day != m_day) {
        m_day = v.row.day;
        m_dayStartRowid = lastRowid();
        m_dayStartRows = m_rows;
    }
    qint64 added = 0;
    for (int step = 0; step < 24; ++step) {
        const int hour = v.descending ? 23 - step : step;
        if (v.row.values.value(QStringLiteral("Hour_%1").arg(hour)).toLongLong() == 0)
            continue;
        QDateTime from = std::max(v.from, WallClock::at(v.row.day, QTime(hour, 0, 0)));
        QDateTime to = std::min(v.to, WallClock::at(v.row.day, QTime(hour, 59, 59)));
        if (m_cut.isValid()) {
            if (v.descending)
                from = std::max(from, m_cut);
            else
                to = std::min(to, m_cut);
        }
        if (from > to)
            continue;
        const bool beforeCut = m_cut.isValid();
        added += readHour(v, hour, from, to);
        if (!beforeCut && m_rows >= m_context.tempLogRecSize) {
            cutAtBudget();
            m_cutDay = v.row.day;
            break;
        }
    }
    // Files read after the cut on its day bring their rows up to the cut: the budget holds
    // for the whole slice, not for each meter.
    if (m_cut.isValid() && m_rows > m_context.tempLogRecSize)
        added -= trimToBudget();
    return VisitResult{added, false, {}};
}

qint64 SnapshotLoader::readHour(const DayVisit& v, int hour, const QDateTime& from,
                                const QDateTime& to)
{
    SqliteDatabase& db = m_context.scratch->database();
    const LogKind kind = m_logKind;
    const QString timeTable = SchemaCatalog::hourTimeIndexTable(kind, v.row.logTablesIndex, hour);
    const QString valueTable = SchemaCatalog::hourValueTable(kind, v.row.logTablesIndex, hour);
    // An hour the day's row flags without its tables is damaged, as a missing day table is in
    // every other log: the walk reports it with the meter file and the table. One prepared
    // look-up of the attached file's columns serves every hour of the load.
    bool hasProfile = false;
    for (const QString& table : {valueTable, timeTable}) {
        m_columnsOf->bindAll({table, v.schema});
        const bool exists = m_columnsOf->next() && m_columnsOf->integer(0) != 0;
        // Files before the profile index column came read it as profile 0.
        hasProfile = exists && m_columnsOf->integer(1) != 0;
        m_columnsOf->reset();
        if (!exists)
            throw StorageError(StorageError::Kind::Engine, v.file->dbPath,
                               QStringLiteral("no such table: ") + table);
    }

    const QString times = qualified(v.schema, timeTable);
    const QVariantList bounds{QueryCatalog::stamp(from), QueryCatalog::stamp(to)};
    const int excluded = excludedModeOfHour(times, bounds);
    const QList<qint64>& ids = idsOf(*v.file);
    const QString direction = v.descending ? QStringLiteral("DESC") : QStringLiteral("ASC");
    // The hour's tables are joined where they stand in the meter file, with no copy of the
    // time index: the value table is read once in its own order (no index of the writer's
    // may reorder it) and the engine's automatic index over the hour's few instants makes
    // each value one look-up. Rows arrive stamped with their file's device index.
    QString sql =
        QStringLiteral("INSERT INTO %1 ([DataID], [Value], [Date/Time], [ms], [DTmode], "
                       "[TypeID], [ProfileIndex], [DeviceIndex]) SELECT H.[DataID], H.[Value], "
                       "HI.[Date/Time], HI.[ms], HI.[DTmode], HI.[TypeID], %4, ? FROM %3 AS H "
                       "NOT INDEXED CROSS JOIN %2 AS HI ON H.[Date/TimeIndex] = "
                       "HI.[Date/TimeIndex] WHERE HI.[Date/Time] BETWEEN ? AND ?")
            .arg(SqlIdentifier::quote(m_target), times, qualified(v.schema, valueTable),
                 hasProfile ? QStringLiteral("HI.[ProfileIndex]") : QStringLiteral("0")) +
        filterSql(ids);
    QVariantList values{qint64(v.file->deviceIndex + 1)};
    values << bounds << filterValues(ids);
    if (excluded >= 0) {
        sql += QStringLiteral(" AND HI.[DTmode] <> ?");
        values << excluded;
    }
    // Time order decides which rows the budget keeps; the value table's own order decides
    // which of two equal keys is read first, as it does when no budget can end in this hour.
    const qint64 instants = v.row.values.value(QStringLiteral("Recs_%1").arg(hour)).toLongLong();
    const bool budgetMayEnd =
        ids.isEmpty() || instants <= 0 || m_rows + instants * ids.size() > m_context.tempLogRecSize;
    m_hourInsert = sql;
    m_hourValues = values;
    if (!m_cut.isValid() && budgetMayEnd) {
        sql += QStringLiteral(" ORDER BY HI.[Date/Time] %1, HI.[ms] %1, H.rowid LIMIT ?")
                   .arg(direction);
        values << std::max<qint64>(0, m_context.tempLogRecSize - m_rows);
    }
    m_hourStartRowid = lastRowid();
    db.execute(sql, values);
    const qint64 added = db.handle().getChanges();
    m_rows += added;
    return added;
}

qint64 SnapshotLoader::lastRowid()
{
    m_lastRowid->next();
    const qint64 rowid = m_lastRowid->integer(0);
    m_lastRowid->reset();
    return rowid;
}

int SnapshotLoader::excludedModeOfHour(const QString& times, const QVariantList& bounds)
{
    SqliteDatabase& db = m_context.scratch->database();
    const QString inHour = QStringLiteral(" FROM %1 WHERE [Date/Time] BETWEEN ? AND ?").arg(times);
    SqlStatement modes =
        db.prepare(QStringLiteral("SELECT max([DTmode] = 0), max([DTmode] = 1)") + inHour);
    modes.bindAll(bounds);
    const bool read = modes.next();
    const bool mode0 = read && modes.integer(0) != 0;
    const bool mode1 = read && modes.integer(1) != 0;
    if (mode0 && mode1) {
        if (!m_bothModes) {
            // Keep the mode that was being read; with nothing read yet, the mode of the first
            // instant in the direction of reading.
            int kept = m_lastMode;
            if (kept < 0)
                kept = db.scalar(QStringLiteral("SELECT [DTmode]") + inHour +
                                     QStringLiteral(" ORDER BY [Date/TimeIndex] %1 LIMIT 1")
                                         .arg(m_context.descending ? QStringLiteral("DESC")
                                                                   : QStringLiteral("ASC")),
                                 bounds)
                           .toInt();
            m_bothModes = true;
            m_excludedMode = kept == 0 ? 1 : 0;
        }
        return m_excludedMode;
    }
    // The doubled hour is over: the mode of this hour is the one read from now on.
    m_bothModes = false;
    m_excludedMode = -1;
    if (mode0 || mode1)
        m_lastMode = mode1 ? 1 : 0;
    return -1;
}

void SnapshotLoader::cutAtBudget()
{
    SqliteDatabase& db = m_context.scratch->database();
    const QString target = SqlIdentifier::quote(m_target);
    const bool descending = m_context.descending;
    const QString latest = descending ? QStringLiteral("min") : QStringLiteral("max");
    const QString before = descending ? QStringLiteral(">") : QStringLiteral("<");
    const QString beyond = descending ? QStringLiteral("<") : QStringLiteral(">");
    // The last instant this file got to is in the hour just read; files read before it on
    // the same day may have gone further, and those rows belong to the next slice as well.
    // Only the rows of this day can lie beyond it: every earlier day of the walk is behind
    // the cut, so the look-ups go by row number over the day's rows alone.
    const QString last =
        db.scalar(
              QStringLiteral("SELECT %1([Date/Time]) FROM %2 WHERE rowid > ?").arg(latest, target),
              {m_hourStartRowid})
            .toString();
    QString previous =
        db.scalar(QStringLiteral("SELECT %1([Date/Time]) FROM %2 WHERE rowid > ? AND "
                                 "[Date/Time] %3 ?")
                      .arg(latest, target, before),
                  {m_dayStartRowid, last})
            .toString();
    if (previous.isEmpty())
        previous = db.scalar(QStringLiteral("SELECT %1([Date/Time]) FROM %2 WHERE rowid <= ?")
                                 .arg(latest, target),
                             {m_dayStartRowid})
                       .toString();
    // The LIMIT may have split the last instant: it goes to the next slice whole. When it is
    // the only instant of this one (the budget was spent inside it), this file's part of it is
    // read whole instead, so that no value of the instant is left between two slices.
    if (previous.isEmpty()) {
        db.execute(QStringLiteral("DELETE FROM %1 WHERE rowid > ? AND [Date/Time] = ?").arg(target),
                   {m_hourStartRowid, last});
        m_rows -= db.handle().getChanges();
        db.execute(m_hourInsert + QStringLiteral(" AND HI.[Date/Time] = ?"),
                   m_hourValues + QVariantList{last});
        m_rows += db.handle().getChanges();
    }
    const QString reached = previous.isEmpty() ? last : previous;
    db.execute(
        QStringLiteral("DELETE FROM %1 WHERE rowid > ? AND [Date/Time] %2 ?").arg(target, beyond),
        {m_dayStartRowid, reached});
    m_rows -= db.handle().getChanges();
    m_cut = StampedTime::parseClock(reached);
}

qint64 SnapshotLoader::trimToBudget()
{
    SqliteDatabase& db = m_context.scratch->database();
    const QString target = SqlIdentifier::quote(m_target);
    const bool descending = m_context.descending;
    // Whole instants in the order of reading, as many as the budget holds (at least one).
    // The days before the cut's are whole and within the budget: only the cut day's instants
    // are counted, on top of the rows the slice held when the day began.
    SqlStatement instants =
        db.prepare(QStringLiteral("SELECT [Date/Time], count(*) FROM %1 WHERE rowid > ? GROUP BY "
                                  "[Date/Time] ORDER BY [Date/Time] %2")
                       .arg(target, descending ? QStringLiteral("DESC") : QStringLiteral("ASC")));
    instants.bindAll({m_dayStartRowid});
    qint64 total = m_dayStartRows;
    QString kept;
    while (instants.next()) {
        total += instants.value(1).toLongLong();
        if (total > m_context.tempLogRecSize && (m_dayStartRows > 0 || !kept.isEmpty()))
            break;
        kept = instants.text(0);
    }
    if (kept.isEmpty()) {
        // Not one instant of the cut day fits: the slice ends with the day before.
        db.execute(QStringLiteral("DELETE FROM %1 WHERE rowid > ?").arg(target), {m_dayStartRowid});
        kept =
            db.scalar(QStringLiteral("SELECT %1([Date/Time]) FROM %2")
                          .arg(descending ? QStringLiteral("min") : QStringLiteral("max"), target))
                .toString();
    } else {
        db.execute(QStringLiteral("DELETE FROM %1 WHERE rowid > ? AND [Date/Time] %2 ?")
                       .arg(target, descending ? QStringLiteral("<") : QStringLiteral(">")),
                   {m_dayStartRowid, kept});
    }
    const qint64 removed = db.handle().getChanges();
    m_rows -= removed;
    m_cut = StampedTime::parseClock(kept);
    return removed;
}

void SnapshotLoader::copyScaledFormats(const DayVisit& v)
{
    if (m_formatsCopied.contains(v.file->dbPath))
        return;
    m_formatsCopied.insert(v.file->dbPath);
    SqliteDatabase& db = m_context.scratch->database();
    if (!attachedTableExists(db, v.schema, QStringLiteral("ScaledFormats")))
        return;
    const QString target = m_numbers.sliceTable(QStringLiteral("ScaledFormats_"));
    db.execute(QStringLiteral("INSERT INTO %1 ([ProfileIndex], [FormatID], [Digits], [Units], "
                              "[Decimals]) SELECT [ProfileIndex], [FormatID], [Digits], [Units], "
                              "[Decimals] FROM %2")
                   .arg(SqlIdentifier::quote(target),
                        qualified(v.schema, QStringLiteral("ScaledFormats"))));
    DayWalk::stampDevice(db, target, v.file->deviceIndex + 1);
}

} // namespace lorvane
