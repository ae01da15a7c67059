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

ViewResult PqView::run(QueryContext& context)
{
    constexpr LogKind kind = LogKind::PowerQuality;
    const LogFileList::CaptureFiles files = LogFileList::withPqRecords(context.files);
    const QList<LogFileEntry>& all = files.all;
    QList<LogFileEntry> pqFiles = files.pq;
    QList<LogFileEntry> waveFiles = files.captures;

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
