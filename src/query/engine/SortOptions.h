// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SortState.h"
#include "store/LogKind.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace lorvane {

/// One entry of a kind's sort list: the text the user picks and the columns of the grid's
/// statement it orders by (quoted, ready for an ORDER BY clause).
struct SortItem
{
    QString text;
    QStringList columns;
};

/// The logic of the sort dialog: the sort items of each log kind, the directions and the
/// snapshot groupings, and the ORDER BY clause a choice gives. A new sort only changes how the
/// query's tables are read again: nothing here touches a meter file.
class SortOptions
{
public:
    /// The sort items of `kind` in list order; "Date/Time" first. For snapshots and demand
    /// each of `dataColumns` (the grid's data column names, already quoted) follows; the other
    /// kinds ignore it. A kind without a grid has the "Date/Time" item alone.
    static QList<SortItem> items(LogKind kind, const QStringList& dataColumns = {});
    /// The texts of `items`, for the "Sort Item" list.
    static QStringList itemTexts(LogKind kind, const QStringList& dataColumns = {});
    /// Position of the item whose text is `text` (any case) in the kind's list; 0 (Date/Time)
    /// for an empty text, -1 when the kind has no such item.
    static int itemIndex(LogKind kind, const QString& text, const QStringList& dataColumns = {});

    /// The columns of a kind's record time, in the order that puts records in time order.
    static QStringList timeColumns(LogKind kind);
    /// The statement words of a direction: "ASC" or "DESC".
    static QString directionWord(bool descending);
    /// The directions as the dialog shows them: "Ascending", "Descending".
    static QStringList directionNames();
    /// The grouping list of snapshots: "All Snapshots", "Group By Type", then the log names.
    static QStringList snapshotGroupings();

    /// The ORDER BY clause (without the words ORDER BY) of `state` for `kind`: the item's
    /// columns, then the record time, each in the chosen direction, so that rows equal in the
    /// key stay in time order and a change of direction reverses both. Inputs and relays end
    /// with the device index ascending, so that the two meters' rows of one instant keep
    /// their meter order. An item outside the list falls back to "Date/Time".
    static QString orderBy(LogKind kind, const SortState& state,
                           const QStringList& dataColumns = {});
};

} // namespace lorvane
