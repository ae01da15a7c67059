// SPDX-License-Identifier: GPL-3.0-or-later
#include "SnapshotView.h"

#include "SnapshotGrid.h"
#include "SnapshotLoader.h"
#include "platform/UserText.h"
#include "query/engine/DayWalk.h"
#include "query/engine/LogFileList.h"
#include "query/engine/QueryContext.h"
#include "store/LogKind.h"

namespace lorvane {

SnapshotView::SnapshotView(QueryContext& context, LogKind logKind)
    : m_context(context), m_logKind(logKind)
{
}

QString SnapshotView::caption(LogKind logKind)
{
    return logKind == LogKind::Demand ? userText("402008", "Show Energy && Demand")
                                      : userText("402009", "Show Snapshots");
}

ViewResult SnapshotView::load()
{
    QueryCatalog catalog(*m_context.scratch);
    // A split-log meter reads its interval logs: the query's devices are the expanded files.
    m_files = LogFileList::expand(m_context.files, int(m_logKind));
    m_numbers = catalog.createQuery(m_context.start, m_context.end, m_logKind, m_files);
    m_ranges.clear();
    m_noData = false;
    m_cancelled = false;
    readSlice(m_numbers, m_context.start, true);
    return current();
}

bool SnapshotView::readSlice(const QueryNumbers& numbers, const QDateTime& from, bool first)
{
    SnapshotLoader loader(m_context, m_logKind);
    const DayWalk::Result walk = loader.load(numbers, m_files, from, m_context.end);
    const bool complete = !walk.stopped && !walk.cancelled;
    if (walk.stopped)
        QueryCatalog(*m_context.scratch).setSliceEnd(numbers, walk.reached);
    const QDateTime reached = walk.stopped ? walk.reached : m_context.end;
    m_cancelled = walk.cancelled;
    if (first) {
        m_noData = walk.noData || walk.rows == 0;
        m_pager.start(numbers.slice, reached, complete, m_context.descending);
    } else {
        m_pager.added(numbers.slice, reached, complete, walk.noData || walk.rows == 0);
    }
    if (walk.noData || walk.rows == 0)
        return false;
    m_numbers = numbers;
    const bool descending = m_context.descending;
    PageRange range{walk.effectiveStart, walk.effectiveEnd, walk.rows};
    if (walk.stopped) {
        // The page ends where its slice stopped.
        if (descending)
            range.start = walk.reached;
        else
            range.end = walk.reached;
    }
    m_ranges.insert(numbers.slice, range);
    return true;
}

ViewResult SnapshotView::step(int delta)
{
    switch (m_pager.move(delta)) {
    case QueryPager::Step::None:
        return current();
    case QueryPager::Step::Show:
        break;
    case QueryPager::Step::ReadNext: {
        const QDateTime from = m_pager.nextStart();
        const bool pastEnd = m_context.descending ? from < m_context.end : from > m_context.end;
        if (pastEnd) {
            m_pager.added(-1, {}, true, true);
            break;
        }
        const QueryNumbers next = QueryCatalog(*m_context.scratch)
                                      .addSlice(m_numbers.query, from, m_context.end, m_logKind);
        readSlice(next, from, false);
        break;
    }
    }
    return current();
}

ViewResult SnapshotView::show()
{
    return current();
}

ViewResult SnapshotView::current() const
{
    ViewResult result;
    result.logKind = m_logKind;
    QueryNumbers numbers = m_numbers;
    numbers.slice = m_pager.slice();
    result.numbers = numbers;
    result.page = m_pager.page();
    result.pages = m_pager.pages();
    result.allRead = m_pager.allRead();
    result.cancelled = m_cancelled;
    result.noData = m_noData;
    const QString to = QLatin1Char(' ') + userText("402010", "to") + QLatin1Char(' ');
    if (m_noData) {
        result.rangeText = userText("402011", "No data found") + QStringLiteral(": ") +
                           DayWalk::timeText(m_context.start) + to +
                           DayWalk::timeText(m_context.end);
    } else {
        const PageRange range = m_ranges.value(numbers.slice);
        result.effectiveStart = range.start;
        result.effectiveEnd = range.end;
        result.rowsRead = range.rows;
        const bool descending = m_context.descending;
        result.rangeText = DayWalk::timeText(descending ? range.end : range.start) + to +
                           DayWalk::timeText(descending ? range.start : range.end);
    }
    result.grids << SnapshotGrid(m_context).fill(numbers, caption(m_logKind));
    return result;
}

QList<ViewResult> SnapshotView::run(QueryContext& context, const ViewRequest& request,
                                    LogKind logKind)
{
    SnapshotView view(context, logKind);
    QList<ViewResult> pages{view.load()};
    if (request.allPages) {
        while (view.pager().canDown()) {
            const int before = view.pager().page();
            ViewResult next = view.step(1);
            if (next.page == before)
                break;
            pages << next;
        }
        return pages;
    }
    while (view.pager().page() < request.page && view.pager().canDown()) {
        const int before = view.pager().page();
        ViewResult next = view.step(1);
        pages = {next};
        if (next.page == before)
            break;
    }
    return pages;
}

} // namespace lorvane
