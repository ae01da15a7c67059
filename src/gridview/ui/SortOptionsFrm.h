// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/SortState.h"

#include <QDialog>
#include <QStringList>

class QComboBox;
class QListWidget;

namespace lorvane {

/// The sort dialog of the log grid: the record type (snapshots and demand), the direction and
/// the sort item of the current kind. It only returns a choice; the grid refills itself.
class SortOptionsFrm : public QDialog
{
    Q_OBJECT
public:
    /// `items` the kind's sort items, `recordTypes` the groupings (empty for kinds without
    /// record types), `state` the choice stored in the grid.
    SortOptionsFrm(const QStringList& items, const QStringList& recordTypes, const SortState& state,
                   QWidget* parent = nullptr);

    /// The choice as the dialog shows it.
    SortState state() const;
    QListWidget* recordTypes() const { return m_recordTypes; }
    QListWidget* selectedItems() const { return m_items; }
    QComboBox* order() const { return m_order; }

signals:
    void helpRequested(const QString& topic);

private:
    QListWidget* m_recordTypes = nullptr;
    QListWidget* m_items = nullptr;
    QComboBox* m_order = nullptr;
};

} // namespace lorvane
