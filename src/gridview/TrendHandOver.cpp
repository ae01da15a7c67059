// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendHandOver.h"

#include "query/engine/QueryContext.h"

#include <algorithm>

namespace lorvane {

QList<QVariantMap> TrendHandOver::columns(const QueryContext& context, LogKind kind)
{
    QList<QVariantMap> rows;
    const QDateTime from = std::min(context.start, context.end);
    const QDateTime to = std::max(context.start, context.end);
    for (const LogFileEntry& file : context.files) {
        if (!file.used)
            continue;
        const QList<qint64>& ids = kind == LogKind::Demand ? file.items.demandIds : context.dataIds;
        for (qint64 id : ids)
            rows.append({{QStringLiteral("DataID"), id},
                         {QStringLiteral("DbPath"), file.dbPath},
                         {QStringLiteral("DeviceTypeID"), file.deviceTypeId},
                         {QStringLiteral("From"), from},
                         {QStringLiteral("To"), to}});
    }
    return rows;
}

} // namespace lorvane
