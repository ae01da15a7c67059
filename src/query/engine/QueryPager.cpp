// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueryPager.h"

namespace lorvane {

void QueryPager::start(qint64 slice, const QDateTime& reached, bool complete, bool descending)
{
    m_slices = {Slice{slice, reached}};
    m_page = 1;
    m_allRead = complete;
    m_descending = descending;
}

void QueryPager::added(qint64 slice, const QDateTime& reached, bool complete, bool empty)
{
    if (empty) {
        m_allRead = true;
        m_page = pages();
        return;
    }
    m_slices.append(Slice{slice, reached});
    m_page = pages();
    m_allRead = complete;
}

QueryPager::Step QueryPager::move(int delta)
{
    const int target = m_page + delta;
    if (m_slices.isEmpty() || target < 1)
        return Step::None;
    if (target <= pages()) {
        m_page = target;
        return Step::Show;
    }
    if (m_allRead) {
        m_page = pages();
        return Step::Show;
    }
    return Step::ReadNext;
}

qint64 QueryPager::slice() const
{
    return m_page >= 1 && m_page <= pages() ? m_slices.at(m_page - 1).number : -1;
}

QDateTime QueryPager::nextStart() const
{
    if (m_slices.isEmpty())
        return {};
    return m_slices.last().reached.addSecs(m_descending ? -1 : 1);
}

} // namespace lorvane
