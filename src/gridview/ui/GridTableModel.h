// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/GridTable.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>

namespace lorvane {

/// One grid of the log window as a virtual table: the heading rows of the grid first, then its
/// data rows, each cell read from the formatted table only when the view asks for it, so a
/// grid of a million rows costs no more to show than one screenful.
class GridTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum class Role
    {
        /// The row's keys (`QVariantMap`); empty for a heading row.
        RowKeys = Qt::UserRole,
        /// True on the heading rows shown under the fixed heading.
        HeadingRow,
    };

    explicit GridTableModel(QObject* parent = nullptr);

    /// Shows `table` in place of the grid shown before.
    void setTable(GridTable table);
    const GridTable& table() const { return m_table; }
    /// The data row of view row `row`; -1 for a heading row or outside.
    int dataRow(int row) const;
    /// Where the row pictures are read from ("Wave" is `{folder}/Wave.svg`).
    void setImageFolder(const QString& folder);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QIcon picture(const QString& name) const;
    /// The background of a data row of condition key `condition` ("SURGE" ...); none for "".
    static QVariant conditionBrush(const QString& condition);

    GridTable m_table;
    QString m_imageFolder;
    mutable QHash<QString, QIcon> m_pictures;
};

} // namespace lorvane
