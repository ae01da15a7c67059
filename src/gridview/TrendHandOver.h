// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/LogKind.h"

#include <QList>
#include <QVariantMap>

namespace lorvane {

struct QueryContext;

/// What &Graph of a snapshot or demand grid hands to the trend: one row for each data column
/// of each used meter, with its `DataID`, meter file `DbPath`, `DeviceTypeID` and the query's
/// range as `From` and `To` in time order.
class TrendHandOver
{
public:
    static QList<QVariantMap> columns(const QueryContext& context, LogKind kind);
};

} // namespace lorvane
