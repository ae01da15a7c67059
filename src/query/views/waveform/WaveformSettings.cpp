// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformSettings.h"

#include "platform/SqliteDatabase.h"
#include "query/views/setup/FullScalesLoader.h"

namespace lorvane {

void WaveformSettings::load(SqliteDatabase& db, const QList<LogFileEntry>& files,
                            const QueryNumbers& numbers, const QStringList& logTables)
{
    FullScalesLoader::copyByIndex(db, files, logTables, QStringLiteral("PQWaveLogDataItem"),
                                  numbers.sliceTable(QStringLiteral("PQWaveLogDataItem_")));
    FullScalesLoader::copyByIndex(db, files, logTables, QStringLiteral("HSInputLabels"),
                                  numbers.sliceTable(QStringLiteral("HSInputLabels_")));
}

} // namespace lorvane
