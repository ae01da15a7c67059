// SPDX-License-Identifier: GPL-3.0-or-later
#include "InputLoader.h"

#include "platform/UserText.h"
#include "query/engine/StatusLogCopy.h"

namespace lorvane {

DayWalk::Result InputLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                                  const QueryNumbers& numbers)
{
    const DayWalk::Result walk =
        StatusLogCopy::load(context, files, numbers,
                            {LogKind::Inputs,
                             QStringLiteral("InputLogA_"),
                             {QStringLiteral("DT1"), QStringLiteral("DT2")},
                             userText("304042", "input"),
                             &MeterItems::inputs,
                             QStringLiteral("InputIndex")});
    StatusLogCopy::copySettings(context, files, numbers, QStringLiteral("InputLogA_"),
                                QStringLiteral("InputLogDataItem"),
                                QStringLiteral("InputLogDataItem_"));
    return walk;
}

} // namespace lorvane
