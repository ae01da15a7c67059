// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemEventLoader.h"

#include "platform/UserText.h"
#include "query/engine/StatusLogCopy.h"

namespace lorvane {

DayWalk::Result SystemEventLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                                        const QueryNumbers& numbers)
{
    return StatusLogCopy::load(context, files, numbers,
                               {LogKind::SystemEvent,
                                QStringLiteral("SystemEventLogA_"),
                                {QStringLiteral("Date/Time")},
                                userText("304044", "System Event")});
}

} // namespace lorvane
