// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PGraphRecords.h"

#include <QList>
#include <QString>
#include <optional>

namespace lorvane {

/// The rules of the item choice of a power graph (`SelPGraph`): how many may be drawn and the
/// counters beside the list.
class PGraphChoiceCheck
{
public:
    /// "Please select the items you want to graph." for none, "Maximum 6 items. Too many
    /// items selected." for more than six; nothing when `chosen` may be drawn.
    static std::optional<QString> check(qsizetype chosen);

    struct Counters
    {
        qsizetype items = 0;   ///< chosen
        qsizetype devices = 0; ///< meters among the chosen
        qsizetype total = 0;   ///< items the list offers
    };
    /// The counters of `chosen` rows of `list`.
    static Counters counters(const QList<PGraphChoice>& list, const QList<int>& chosen);
};

} // namespace lorvane
