// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlickerLoader.h"

#include "platform/UserText.h"
#include "query/engine/StatusLogCopy.h"

namespace lorvane {

DayWalk::Result FlickerLoader::load(QueryContext& context, QList<LogFileEntry>& files,
                                    const QueryNumbers& numbers)
{
    return StatusLogCopy::load(context, files, numbers,
                               {LogKind::Flicker,
                                QStringLiteral("Flicker_MaxMin_"),
                                {QStringLiteral("FS_DT"), QStringLiteral("FE_DT")},
                                userText("304043", "flicker max/min")});
}

} // namespace lorvane
