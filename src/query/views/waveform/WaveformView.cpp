// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformView.h"

#include "WaveformGrid.h"
#include "WaveformLoader.h"
#include "WaveformSettings.h"
#include "query/engine/LogFileList.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "query/views/pq/PqLoader.h"
#include "query/views/setup/FullScalesLoader.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult WaveformView::run(QueryContext& context)
{
    // A split-log meter keeps its PQ records in another file than its captures: the query
    // reads both, so that a capture finds the event it belongs to.
    const auto load = [](QueryContext& c, QList<LogFileEntry>& files, const QueryNumbers& numbers) {
        LogFileList::CaptureFiles parts = LogFileList::withPqRecords(c.files);
        const DayWalk::Result walk = WaveformLoader::load(c, parts.captures, numbers);
        PqLoader::load(c, parts.pq, numbers);
        PqLoader::linkCaptures(c.scratch->database(), numbers);
        const QStringList logs{numbers.sliceTable(QStringLiteral("WaveformLog_"))};
        SqliteDatabase& db = c.scratch->database();
        WaveformSettings::load(db, files, numbers, logs);
        FullScalesLoader::load(db, files, numbers, logs);
        return walk;
    };
    return StatusView::run(
        context, LogKind::Waveform, load, &WaveformView::grids,
        [](const QList<LogFileEntry>& files) { return LogFileList::withPqRecords(files).all; });
}

QList<GridTable> WaveformView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {WaveformGrid::fill(context.scratch->database(), numbers, context.descending,
                               context.typeFilter, context.dataFormat)};
}

} // namespace lorvane
