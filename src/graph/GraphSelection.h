// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/QueryCatalog.h"

#include <QList>
#include <QString>
#include <QVariantMap>

namespace lorvane {

/// What a graph window is opened with from a log view: the view's kind and query, the keys of
/// its rows in the order shown (a window steps through them with its previous and next
/// commands), the row chosen and the caption of that row.
struct GraphSelection
{
    int logKind = 0;
    QueryNumbers numbers;
    QList<QVariantMap> rows;
    int position = -1;
    QString caption;
};

} // namespace lorvane
