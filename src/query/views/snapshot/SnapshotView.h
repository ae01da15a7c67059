// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/LogFileEntry.h"
#include "query/engine/QueryCatalog.h"
#include "query/engine/QueryPager.h"
#include "query/engine/ViewRegistry.h"
#include "query/engine/ViewResult.h"

#include <QHash>

namespace lorvane {

struct QueryContext;

/// The Snapshots (kind 3) and Demand (kind 4) view without a screen: creates the query, reads
/// its first slice, fills the grid, and pages through further slices. Once read, a page is
/// shown again from its tables alone, so a repeated press reads no meter file.
class SnapshotView
{
public:
    /// `logKind` Snapshots or Demand. The context must outlive the view.
    SnapshotView(QueryContext& context, LogKind logKind);

    /// A fresh press: `create query`, the first slice, its grid. Throws StorageError.
    ViewResult load();
    /// The current page again from the query's tables (a buffered press, or a new sort or
    /// record type set in the context). Throws StorageError; nothing before `load`.
    ViewResult show();
    /// `&Up` (-1) or `&Down` (+1): a page already read is shown from its tables; past the
    /// last slice a new one is read from the end of the last plus one second; when nothing
    /// is left the last page is shown and `allRead` set. Page 1 `&Up` changes nothing.
    ViewResult step(int delta);

    const QueryPager& pager() const { return m_pager; }
    const QueryNumbers& numbers() const { return m_numbers; }

    /// The caption of the kind's grid ("Show Snapshots", "Show Energy && Demand").
    static QString caption(LogKind logKind);
    /// The registry's form: the pages `request` names, read in order.
    static QList<ViewResult> run(QueryContext& context, const ViewRequest& request,
                                 LogKind logKind);

private:
    struct PageRange
    {
        QDateTime start;
        QDateTime end;
        qint64 rows = 0;
    };
    /// Reads slice `numbers` from `from` to the query's end; false when it holds no row.
    bool readSlice(const QueryNumbers& numbers, const QDateTime& from, bool first);
    ViewResult current() const;

    QueryContext& m_context;
    LogKind m_logKind;
    /// The files the query reads, expanded once when it is created.
    QList<LogFileEntry> m_files;
    QueryNumbers m_numbers;
    QueryPager m_pager;
    QHash<qint64, PageRange> m_ranges;
    bool m_noData = false;
    bool m_cancelled = false;
};

} // namespace lorvane
