// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendLoader.h"

#include "TrendTime.h"
#include "platform/LoadProgress.h"
#include "platform/SqlIdentifier.h"
#include "platform/SqliteDatabase.h"
#include "platform/StorageError.h"
#include "query/engine/LogFileList.h"
#include "store/LogKind.h"
#include "store/SchemaCatalog.h"
#include "store/StampedTime.h"
#include "store/WallClock.h"

#include <QSet>
#include <algorithm>
#include <numeric>

namespace lorvane {

namespace {

const double nan = std::numeric_limits<double>::quiet_NaN();

/// The instants of one hour by time index: a plain array over the span of the indexes when
/// they lie close together (as a meter numbers them), a hash otherwise. Its size follows the
/// rows actually read, never a count stored in the file.
class HourInstants
{
public:
    void fill(std::vector<std::pair<qint64, double>>&& rows)
    {
        m_dense.clear();
        m_sparse.clear();
        if (rows.empty()) {
            m_first = 1;
            return;
        }
        auto [low, high] = std::minmax_element(rows.begin(), rows.end());
        const qint64 span = high->first - low->first + 1;
        if (span <= qint64(rows.size()) * 4 + 16) {
            m_first = low->first;
            m_dense.assign(size_t(span), nan);
            for (const auto& [index, time] : rows)
                m_dense[size_t(index - m_first)] = time;
        } else {
            m_first = 1;
            m_sparse.reserve(qsizetype(rows.size()));
            for (const auto& [index, time] : rows)
                m_sparse.insert(index, time);
        }
    }
    /// The instant's time, NaN when the index is not one of the hour's instants in range.
    double time(qint64 index) const
    {
        if (!m_dense.empty()) {
            const qint64 at = index - m_first;
            return at >= 0 && at < qint64(m_dense.size()) ? m_dense[size_t(at)] : nan;
        }
        return m_sparse.value(index, nan);
    }

private:
    qint64 m_first = 1;
    std::vector<double> m_dense;
    QHash<qint64, double> m_sparse;
};

/// Orders a set's samples by time when a doubled hour (the end of summer time) wrote them
/// out of order; equal times keep their order.
void sortByTime(GraphSet& set)
{
    if (std::is_sorted(set.times.cbegin(), set.times.cend()))
        return;
    std::vector<int> order(size_t(set.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&set](int a, int b) { return set.times[a] < set.times[b]; });
    QVector<double> times(set.size()), values(set.size());
    for (int i = 0; i < set.size(); ++i) {
        times[i] = set.times[order[size_t(i)]];
        values[i] = set.values[order[size_t(i)]];
    }
    set.times = std::move(times);
    set.values = std::move(values);
}

} // namespace

/// One meter's files read into its sets.
class TrendLoader::MeterPass
{
public:
    MeterPass(const TrendRequest& request, QList<GraphSet>& sets, qsizetype firstSet,
              LoadProgress& progress)
        : m_request(request), m_sets(sets), m_firstSet(firstSet), m_progress(progress)
    {
        for (qsizetype i = 0; i < request.dataIds.size(); ++i)
            m_slotOf.insert(request.dataIds.at(i), int(i));
        m_fromMs = TrendTime::of(request.from);
        m_toMs = TrendTime::of(request.to);
    }

    /// False when the user cancelled.
    bool readFile(const QString& path, double shareFrom, double shareTo)
    {
        SqliteDatabase db(path, SqliteDatabase::Mode::ReadOnly);
        // A split-log meter keeps each log in a file of its own; the others lack its master.
        if (!db.tableExists(SchemaCatalog::masterTable(int(m_request.log))))
            return true;
        const QList<Hour> hours = hoursOf(db);
        // One look at the catalogue for the whole file: asking it table by table scans it
        // again for each hour, and a year holds some 17 000 hour tables.
        m_tables.clear();
        for (const QString& table : db.tables())
            m_tables.insert(table.toLower());
        ProgressShare share(m_progress, shareFrom, shareTo);
        for (qsizetype i = 0; i < hours.size(); ++i) {
            if (share.cancelRequested())
                return false;
            share.advance(i, hours.size());
            if (i == 0 || hours.at(i).dayText != hours.at(i - 1).dayText)
                share.status(hours.at(i).dayText.left(10));
            readHour(db, hours.at(i));
        }
        share.advance(1, 1);
        return true;
    }

private:
    QList<Hour> hoursOf(SqliteDatabase& db)
    {
        QString sql = QStringLiteral("SELECT [Date/Time], [LogTablesIndex]");
        for (int h = 0; h < 24; ++h)
            sql += QStringLiteral(", [Hour_%1]").arg(h);
        sql += QStringLiteral(" FROM %1 WHERE [Date/Time] BETWEEN ? AND ? ORDER BY [Date/Time]")
                   .arg(SchemaCatalog::masterTable(int(m_request.log)));
        SqlStatement days = db.prepare(sql);
        days.bind(1, StampedTime::storedText(WallClock::at(m_request.from.date(), QTime(0, 0))))
            .bind(2,
                  StampedTime::storedText(WallClock::at(m_request.to.date(), QTime(23, 59, 59))));
        QList<Hour> hours;
        while (days.next()) {
            const QString day = days.text(0);
            const QDate date = StampedTime::parseClock(day).date();
            for (int h = 0; h < 24; ++h) {
                if (days.integer(2 + h) == 0)
                    continue;
                // Hours wholly outside the range are not opened.
                const double start = TrendTime::of(WallClock::at(date, QTime(h, 0)));
                if (start + 3600000.0 <= m_fromMs || start > m_toMs)
                    continue;
                hours.append(Hour{days.integer(1), h, day});
            }
        }
        return hours;
    }

    void requireTable(SqliteDatabase& db, const QString& table)
    {
        if (!m_tables.contains(table.toLower()))
            throw StorageError(StorageError::Kind::Engine, db.path(),
                               QStringLiteral("no such table: ") + table);
    }

    void readHour(SqliteDatabase& db, const Hour& hour)
    {
        const QString timeTable =
            SchemaCatalog::hourTimeIndexTable(m_request.log, hour.logTablesIndex, hour.hour);
        const QString valueTable =
            SchemaCatalog::hourValueTable(m_request.log, hour.logTablesIndex, hour.hour);
        requireTable(db, timeTable);
        requireTable(db, valueTable);

        std::vector<std::pair<qint64, double>> rows;
        SqlStatement index =
            db.prepare(QStringLiteral("SELECT [Date/TimeIndex], [Date/Time], [ms] FROM ") +
                       SqlIdentifier::quote(timeTable));
        while (index.next()) {
            const QString text = index.text(1);
            std::optional<double> clock = TrendTime::fromStoredText(text);
            if (!clock) // throws the damaged-file fault that names the text
                clock = TrendTime::of(StampedTime::parseClock(text));
            if (*clock < m_fromMs || *clock > m_toMs)
                continue;
            rows.emplace_back(index.integer(0), *clock + index.real(2));
        }
        if (rows.empty())
            return;
        m_instants.fill(std::move(rows));

        SqlStatement values =
            db.prepare(QStringLiteral("SELECT [Value], [DataID], [Date/TimeIndex] FROM ") +
                       SqlIdentifier::quote(valueTable));
        while (values.next()) {
            const auto slot = m_slotOf.constFind(qint32(values.integer(1)));
            if (slot == m_slotOf.constEnd())
                continue;
            const double time = m_instants.time(values.integer(2));
            if (std::isnan(time))
                continue;
            GraphSet& set = m_sets[m_firstSet + *slot];
            set.times.append(time);
            // An empty value reads as 0: only then is it worth asking whether it was empty.
            const double value = values.real(0);
            set.values.append(value == 0 && values.isNull(0) ? nan : value);
        }
    }

    const TrendRequest& m_request;
    QList<GraphSet>& m_sets;
    qsizetype m_firstSet;
    LoadProgress& m_progress;
    QHash<qint32, int> m_slotOf;
    double m_fromMs = 0;
    double m_toMs = 0;
    HourInstants m_instants;
    QSet<QString> m_tables;
};

TrendLoad TrendLoader::load(const TrendRequest& request, LoadProgress& progress)
{
    TrendLoad result;
    QList<GraphSet> sets;
    const qsizetype meters = request.meters.size();
    for (qsizetype m = 0; m < meters; ++m) {
        for (qint32 id : request.dataIds) {
            GraphSet set;
            set.dataId = id;
            set.meter = int(m);
            sets.append(set);
        }
    }
    for (qsizetype m = 0; m < meters && !result.cancelled; ++m) {
        MeterPass pass(request, sets, m * request.dataIds.size(), progress);
        const QList<LogFileEntry> files =
            LogFileList::expand({request.meters.at(m)}, int(request.log));
        for (qsizetype f = 0; f < files.size() && !result.cancelled; ++f) {
            const double from = (double(m) + double(f) / double(files.size())) / double(meters);
            const double to = (double(m) + double(f + 1) / double(files.size())) / double(meters);
            result.cancelled = !pass.readFile(files.at(f).dbPath, from, to);
        }
    }
    for (GraphSet& set : sets) {
        if (set.times.isEmpty())
            continue;
        sortByTime(set);
        set.times.squeeze();
        set.values.squeeze();
        set.summarise();
        // Points logged together share their instants: one time column serves them all.
        if (!result.sets.isEmpty()) {
            const GraphSet& previous = result.sets.last();
            if (previous.meter == set.meter && previous.times == set.times)
                set.times = previous.times;
        }
        result.samples += set.size();
        result.sets.append(std::move(set));
    }
    return result;
}

} // namespace lorvane
