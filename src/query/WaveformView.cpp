// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformView.h"

#include "DayRowsCopy.h"
#include "FullScalesLoader.h"
#include "LogFileList.h"
#include "QueryContext.h"
#include "WaveformGrid.h"
#include "WaveformLoader.h"
#include "WaveformSettings.h"
#include "store/TempQueryDatabase.h"

namespace lorvane {

ViewResult WaveformView::run(QueryContext& context)
{
    constexpr int kind = static_cast<int>(LogKind::Waveform);
    QList<LogFileEntry> files = LogFileList::expand(context.files, kind);
    SqliteDatabase& db = context.scratch->database();
    ViewResult result;
    result.logKind = kind;
    result.numbers =
        QueryCatalog(*context.scratch).createQuery(context.start, context.end, kind, files);
    const DayWalk::Result walk = WaveformLoader::load(context, files, result.numbers);
    result.grids = grids(context, result.numbers);
    const QStringList logs{result.numbers.sliceTable(QStringLiteral("WaveformLog_"))};
    WaveformSettings::load(db, files, result.numbers, logs);
    FullScalesLoader::load(db, files, result.numbers, logs);
    DayRowsCopy::describe(walk, context, result);
    return result;
}

QList<GridTable> WaveformView::grids(QueryContext& context, const QueryNumbers& numbers)
{
    return {WaveformGrid::fill(context.scratch->database(), numbers, context.descending,
                               context.typeFilter, context.dataFormat)};
}

} // namespace lorvane
