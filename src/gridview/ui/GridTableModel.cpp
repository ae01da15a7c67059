// SPDX-License-Identifier: GPL-3.0-or-later
#include "GridTableModel.h"

#include <QBrush>
#include <QFile>
#include <QFont>

namespace lorvane {

GridTableModel::GridTableModel(QObject* parent) : QAbstractTableModel(parent)
{
}

void GridTableModel::setTable(GridTable table)
{
    beginResetModel();
    m_table = std::move(table);
    endResetModel();
}

void GridTableModel::setImageFolder(const QString& folder)
{
    m_imageFolder = folder;
    m_pictures.clear();
}

int GridTableModel::dataRow(int row) const
{
    const int data = row - int(m_table.headingRows.size());
    return data >= 0 && data < m_table.rows.size() ? data : -1;
}

int GridTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.headingRows.size() + m_table.rows.size());
}

int GridTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_table.columns.size());
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int headings = int(m_table.headingRows.size());
    const bool heading = index.row() < headings;
    const int row = heading ? index.row() : index.row() - headings;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: {
        const QStringList& cells = heading ? m_table.headingRows.at(row) : m_table.rows.at(row);
        return cells.value(index.column());
    }
    case Qt::DecorationRole:
        if (heading || index.column() != m_table.pictureColumn ||
            row >= m_table.rowPictures.size() || m_table.rowPictures.at(row).isEmpty())
            return {};
        return picture(m_table.rowPictures.at(row));
    case Qt::FontRole:
        if (heading) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    case Qt::BackgroundRole:
        // The heading rows read as part of the grid's heading; a PQ row takes the colour of
        // its condition.
        if (heading)
            return QBrush(QColor(226, 232, 244));
        return conditionBrush(m_table.rowConditions.value(row));
    case int(Role::RowKeys):
        return heading || row >= m_table.rowKeys.size() ? QVariant()
                                                        : QVariant(m_table.rowKeys.at(row));
    case int(Role::HeadingRow):
        return heading;
    default:
        return {};
    }
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return m_table.columns.value(section);
    const int data = dataRow(section);
    return data < 0 ? QVariant() : QVariant(data + 1);
}

QVariant GridTableModel::conditionBrush(const QString& condition)
{
    static const QHash<QString, QColor> colours{{QStringLiteral("SURGE"), QColor(255, 214, 204)},
                                                {QStringLiteral("SAG"), QColor(255, 241, 196)},
                                                {QStringLiteral("START"), QColor(214, 236, 214)},
                                                {QStringLiteral("END"), QColor(214, 226, 245)}};
    const auto found = colours.constFind(condition);
    return found == colours.constEnd() ? QVariant() : QVariant(QBrush(*found));
}

QIcon GridTableModel::picture(const QString& name) const
{
    const auto found = m_pictures.constFind(name);
    if (found != m_pictures.constEnd())
        return *found;
    // A missing picture file leaves the row without a picture; the grid still shows.
    const QString path = m_imageFolder + QLatin1Char('/') + name + QStringLiteral(".svg");
    const QIcon icon = QFile::exists(path) ? QIcon(path) : QIcon();
    m_pictures.insert(name, icon);
    return icon;
}

} // namespace lorvane
