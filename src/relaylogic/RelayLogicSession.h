// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RelayLogicTree.h"
#include "query/engine/QueryCatalog.h"

#include <QList>
#include <QString>
#include <QVariantMap>
#include <optional>

namespace lorvane {

class SqliteDatabase;

/// The state of the relay logic window: the relay rows of the grid that opened it (their keys
/// in grid order), the row shown and its tree. A step or an open that fails keeps the row and
/// the tree shown before.
class RelayLogicSession
{
public:
    RelayLogicSession(SqliteDatabase& scratch, const QueryNumbers& numbers,
                      QList<QVariantMap> rows);

    /// Shows row `position`. Throws Fault or StorageError; the state before stays.
    void open(int position);
    /// "Previous" (-1) or "Next" (+1): empty after the tree of that row was read, or the
    /// message that this is the first or the last record (nothing changes then). Throws as
    /// `open`.
    QString step(int delta);

    int position() const { return m_position; }
    int count() const { return int(m_rows.size()); }
    /// The tree shown, none before the first successful open.
    const std::optional<RelayLogicTree>& tree() const { return m_tree; }
    /// Why Print refuses (no tree of a meter that has one), or empty.
    QString printRefusal() const;

private:
    SqliteDatabase& m_scratch;
    QueryNumbers m_numbers;
    QList<QVariantMap> m_rows;
    int m_position = -1;
    std::optional<RelayLogicTree> m_tree;
};

} // namespace lorvane
