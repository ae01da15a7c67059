// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphItem.h"

#include <algorithm>

namespace lorvane {

namespace {

template <typename Less> double extreme(const QList<PGraphRecord>& records, Less less)
{
    if (records.isEmpty())
        return 0;
    return std::min_element(records.cbegin(), records.cend(), less)->value;
}

} // namespace

double PGraphItem::maximum() const
{
    return extreme(records,
                   [](const PGraphRecord& a, const PGraphRecord& b) { return a.value > b.value; });
}

double PGraphItem::minimum() const
{
    return extreme(records,
                   [](const PGraphRecord& a, const PGraphRecord& b) { return a.value < b.value; });
}

} // namespace lorvane
