// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLoader.h"

#include "platform/UserText.h"
#include "query/engine/StatusLogCopy.h"

namespace lorvane {

DayWalk::Result RelayLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                                  const QueryNumbers& numbers)
{
    // Relays load under the input word: the wait window says "Loading input queries" for both.
    const DayWalk::Result walk =
        StatusLogCopy::load(context, files, numbers,
                            {LogKind::Relays,
                             QStringLiteral("RelayLogA_"),
                             {QStringLiteral("DT1"), QStringLiteral("DT2"), QStringLiteral("DT3")},
                             userText("304042", "input"),
                             &MeterItems::relays,
                             QStringLiteral("RelayIndex")});
    StatusLogCopy::copySettings(context, files, numbers, QStringLiteral("RelayLogA_"),
                                QStringLiteral("RelayLogDataItem"),
                                QStringLiteral("RelayLogDataItem_"));
    return walk;
}

} // namespace lorvane
