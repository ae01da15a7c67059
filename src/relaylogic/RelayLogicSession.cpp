// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicSession.h"

#include "RelayLogicReader.h"
#include "RelayLogicTexts.h"
#include "RelayMeterKind.h"

namespace lorvane {

RelayLogicSession::RelayLogicSession(SqliteDatabase& scratch, const QueryNumbers& numbers,
                                     QList<QVariantMap> rows)
    : m_scratch(scratch), m_numbers(numbers), m_rows(std::move(rows))
{
}

void RelayLogicSession::open(int position)
{
    if (position < 0 || position >= m_rows.size())
        return;
    RelayLogicTree tree = RelayLogicReader::read(m_scratch, m_numbers, m_rows.at(position));
    m_tree = std::move(tree);
    m_position = position;
}

QString RelayLogicSession::step(int delta)
{
    const int target = m_position + delta;
    if (target < 0)
        return RelayLogicTexts::firstRecord();
    if (target >= m_rows.size())
        return RelayLogicTexts::lastRecord();
    open(target);
    return QString();
}

QString RelayLogicSession::printRefusal() const
{
    if (!m_tree || !RelayMeterKind::accepted(m_tree->deviceTypeId))
        return RelayLogicTexts::cannotPrintKind();
    return QString();
}

} // namespace lorvane
