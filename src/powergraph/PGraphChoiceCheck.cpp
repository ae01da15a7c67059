// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphChoiceCheck.h"

#include "PGraphSession.h"
#include "platform/UserText.h"

#include <QSet>

namespace lorvane {

std::optional<QString> PGraphChoiceCheck::check(qsizetype chosen)
{
    if (chosen <= 0)
        return userText("802003", "Please select the items you want to graph.");
    if (chosen > PGraphSession::maxItems)
        return userText("802004", "Maximum 6 items. Too many items selected.");
    return std::nullopt;
}

PGraphChoiceCheck::Counters PGraphChoiceCheck::counters(const QList<PGraphChoice>& list,
                                                        const QList<int>& chosen)
{
    QSet<qint64> devices;
    qsizetype items = 0;
    for (int row : chosen) {
        if (row < 0 || row >= list.size())
            continue;
        ++items;
        devices.insert(list.at(row).deviceIndex);
    }
    return {items, devices.size(), list.size()};
}

} // namespace lorvane
