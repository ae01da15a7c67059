// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqView.h"

#include "PqGrid.h"
#include "PqLoader.h"
#include "query/engine/DayRowsCopy.h"
#include "query/engine/LogFileList.h"
#include "query/engine/QueryContext.h"
#include "query/views/setup/FullScalesLoader.h"
#include "query/views/waveform/WaveformGrid.h"
#include "query/views/waveform/WaveformLoader.h"
#include "query/views/waveform/WaveformSettings.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

namespace {

/// Gives every entry of `part` the device index of the entry with the same file in `all`.
QList<LogFileEntry> indexedLike(QList<LogFileEntry> part, const QList<LogFileEntry>& all)
{
    for (LogFileEntry& entry : part) {
        for (const LogFileEntry& known : all) {
            if (known.dbPath == entry.dbPath)
                entry.deviceIndex = known.deviceIndex;
        }
    }
    return part;
}

} // namespace

ViewResult PqView::run(QueryContext& context)
{
    constexpr LogKind kind = LogKind::PowerQuality;
    // A split-log meter keeps PQ records and captures in different files: the query's device
    // list holds the PQ files, then the capture files not already among them, so that every
    // row's device index names the file it came from.
    const QList<LogFileEntry> pqPart =
        LogFileList::expand(context.files, LogFileList::pqFileOnlyKind);
    const QList<LogFileEntry> wavePart = LogFileList::expand(context.files, int(LogKind::Waveform));
    QList<LogFileEntry> all = pqPart;
    for (const LogFileEntry& entry : wavePart) {
        if (std::none_of(all.cbegin(), all.cend(),
                         [&](const LogFileEntry& known) { return known.dbPath == entry.dbPath; }))
            all << entry;
    }
    for (int i = 0; i < all.size(); ++i)
        all[i].deviceIndex = i;
    QList<LogFileEntry> pqFiles = indexedLike(pqPart, all);
    QList<LogFileEntry> waveFiles = indexedLike(wavePart, all);

    SqliteDatabase& db = context.scratch->database();
    ViewResult result;
    result.logKind = kind;
    result.numbers =
        QueryCatalog(*context.scratch).createQuery(context.start, context.end, kind, all);
    const QueryNumbers& numbers = result.numbers;
    const DayWalk::Result walk = PqLoader::load(context, pqFiles, numbers);
    WaveformLoader::load(context, waveFiles, numbers);
    const QStringList logs{numbers.sliceTable(QStringLiteral("PQLog_")),
                           numbers.sliceTable(QStringLiteral("WaveformLog_"))};
    WaveformSettings::load(db, all, numbers, logs);
    FullScalesLoader::load(db, all, numbers, logs);
    result.grids = grids(context, numbers);
    DayRowsCopy::describe(walk, context, result);
    return result;
}

QList<GridTable> PqView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    SqliteDatabase& db = context.scratch->database();
    // The link check works on the scratch tables only, so a refill may run it again.
    const auto missing = PqLoader::linkCaptures(db, numbers, context.progress);
    const GridTable pq = PqGrid::fill(db, numbers, context.descending, context.dataFormat, missing);
    if (pq.rowKeys.isEmpty()) {
        // No record, no captures to list: the detail grid keeps its headings.
        return {pq, WaveformGrid::fill(db, numbers, context.descending, 0, context.dataFormat,
                                       QStringLiteral("0"))};
    }
    return {pq, PqGrid::listWaveforms(db, numbers, pq.rowKeys.first(), context.descending,
                                      context.dataFormat)};
}

} // namespace lorvane
