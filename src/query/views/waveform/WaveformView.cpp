// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformView.h"

#include "WaveformGrid.h"
#include "WaveformLoader.h"
#include "WaveformSettings.h"
#include "query/engine/QueryContext.h"
#include "query/engine/StatusView.h"
#include "query/views/pq/PqLoader.h"
#include "query/views/setup/FullScalesLoader.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult WaveformView::run(QueryContext& context)
{
    const auto load = [](QueryContext& c, QList<LogFileEntry>& files, const QueryNumbers& numbers) {
        const DayWalk::Result walk = WaveformLoader::load(c, files, numbers);
        PqLoader::load(c, files, numbers);
        PqLoader::linkCaptures(c.scratch->database(), numbers);
        const QStringList logs{numbers.sliceTable(QStringLiteral("WaveformLog_"))};
        SqliteDatabase& db = c.scratch->database();
        WaveformSettings::load(db, files, numbers, logs);
        FullScalesLoader::load(db, files, numbers, logs);
        return walk;
    };
    return StatusView::run(context, LogKind::Waveform, load, &WaveformView::grids);
}

QList<GridTable> WaveformView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {WaveformGrid::fill(context.scratch->database(), numbers, context.descending,
                               context.typeFilter, context.dataFormat)};
}

} // namespace lorvane
