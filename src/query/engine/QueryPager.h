// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>

namespace lorvane {

/// The pages of a query read in slices: which slice a page shows, whether a step needs a new
/// slice, and where that slice starts. Holds no tables; the view reads and shows.
class QueryPager
{
public:
    /// What a step asks of the view.
    enum class Step
    {
        None,     ///< nothing happens (`&Up` on page 1)
        Show,     ///< show `page()` from its slice's tables
        ReadNext, ///< read a new slice from `nextStart()` to the query's end, then `added`
    };

    /// Starts over with the first slice `slice`; `reached` is where it ended and `complete`
    /// whether it reached the end of the range.
    void start(qint64 slice, const QDateTime& reached, bool complete, bool descending);
    /// Records a slice read after `ReadNext`: it becomes the last page and the current one.
    /// A slice with no rows is not kept: the last page stays shown and `all read` is set.
    void added(qint64 slice, const QDateTime& reached, bool complete, bool empty);

    /// `&Up` (-1) or `&Down` (+1).
    Step move(int delta);

    int page() const { return m_page; }
    int pages() const { return int(m_slices.size()); }
    bool allRead() const { return m_allRead; }
    /// The slice number of the current page; -1 before `start`.
    qint64 slice() const;
    /// The start of the next slice: the end of the last one plus one second (minus one in a
    /// descending view).
    QDateTime nextStart() const;
    bool canUp() const { return m_page > 1; }
    bool canDown() const { return !(m_allRead && m_page == pages()); }

private:
    struct Slice
    {
        qint64 number = -1;
        QDateTime reached;
    };
    QList<Slice> m_slices;
    int m_page = 0;
    bool m_allRead = true;
    bool m_descending = false;
};

} // namespace lorvane
