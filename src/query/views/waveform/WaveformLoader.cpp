// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveformLoader.h"

#include "platform/UserText.h"
#include "query/engine/DayRowsCopy.h"

namespace lorvane {

DayWalk::Result WaveformLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                                     const QueryNumbers& numbers)
{
    return DayRowsCopy::copyColumns(context, files, LogKind::Waveform,
                                    numbers.sliceTable(QStringLiteral("WaveformLog_")),
                                    QStringLiteral("Date/Time"), userText("303003", "waveform"));
}

} // namespace lorvane
