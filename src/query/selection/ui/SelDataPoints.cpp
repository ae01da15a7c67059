// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelDataPoints.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "query/selection/TopQueryBuffer.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace lorvane {

namespace {

QTableWidget* makeGrid(const QString& name)
{
    auto* grid = new QTableWidget(0, 2);
    grid->setObjectName(name);
    grid->setHorizontalHeaderLabels(
        {userText("310200", "Data ID"), userText("310201", "Data Name")});
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->verticalHeader()->setVisible(false);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setAlternatingRowColors(true);
    grid->setColumnWidth(0, 80);
    grid->setMinimumSize(340, 360);
    return grid;
}

void fillGrid(QTableWidget* grid, const QList<DataPointRow>& rows)
{
    grid->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < rows.size(); ++r) {
        auto* id = new QTableWidgetItem(QString::number(rows.at(r).id));
        id->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->setItem(r, 0, id);
        grid->setItem(r, 1, new QTableWidgetItem(rows.at(r).name));
    }
}

} // namespace

SelDataPoints::SelDataPoints(DataPointSelection& points, TopQueryBuffer& buffer,
                             const QList<DataPointRow>& available, int devices,
                             DefaultSelection& stored, QString settingsFile, QWidget* parent)
    : QDialog(parent), m_points(points), m_buffer(buffer), m_devices(std::max(devices, 1)),
      m_stored(stored), m_settingsFile(std::move(settingsFile))
{
    setObjectName(QStringLiteral("SelDataPoints"));
    setWindowTitle(userText("310202", "Select Data Points"));
    m_points.openDialog(available);

    static const std::array<std::pair<const char*, const char*>, 9> captions{{
        {"310210", "&Help"},
        {"310211", "&Cancel"},
        {"310212", "&OK"},
        {"310213", "Res&tore"},
        {"310214", "&Set Default"},
        {"310215", "&Add"},
        {"310216", "<<"},
        {"310217", "Add A&ll"},
        {"310218", "Re&move All"},
    }};
    std::array<QPushButton*, 9> buttons{};
    for (int i = 0; i < 9; ++i) {
        const auto& [id, english] = captions.at(static_cast<size_t>(i));
        QString caption = userText(id, english);
        if (i == 5)
            caption += QStringLiteral(" >>");
        else if (i == 6)
            caption += QLatin1Char(' ') + userText("310219", "&Remove");
        auto* button = new QPushButton(caption);
        button->setObjectName(QStringLiteral("Command1_%1").arg(i));
        connect(button, &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
        buttons.at(static_cast<size_t>(i)) = button;
    }
    buttons.at(2)->setDefault(true);

    auto* layout = new QGridLayout(this);
    const std::array<QString, 2> headings{userText("310203", "Available Data Points"),
                                          userText("310204", "Selected Data Points")};
    for (int which = 1; which <= 2; ++which) {
        const auto slot = static_cast<size_t>(which - 1);
        QTableWidget* grid = makeGrid(QStringLiteral("vsFlexGrid1_%1").arg(which));
        connect(grid, &QTableWidget::cellDoubleClicked, this,
                [this, which](int row, int) { moveRow(which, row); });
        m_grids.at(slot) = grid;
        auto* heading = new QLabel(headings.at(slot));
        heading->setObjectName(QStringLiteral("Label%1").arg(which + 1));
        QFont bold = heading->font();
        bold.setBold(true);
        heading->setFont(bold);
        m_counts.at(slot) = new QLabel;
        m_counts.at(slot)->setObjectName(QStringLiteral("Count%1").arg(which));
        const int column = which == 1 ? 0 : 2;
        layout->addWidget(heading, 0, column);
        layout->addWidget(grid, 1, column);
        layout->addWidget(m_counts.at(slot), 2, column);
    }

    auto* middle = new QVBoxLayout;
    middle->addStretch();
    for (int i : {5, 7, 6, 8})
        middle->addWidget(buttons.at(static_cast<size_t>(i)));
    middle->addSpacing(16);
    middle->addWidget(buttons.at(3));
    middle->addWidget(buttons.at(4));
    middle->addStretch();
    layout->addLayout(middle, 1, 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(buttons.at(0));
    bottom->addStretch();
    bottom->addWidget(buttons.at(2));
    bottom->addWidget(buttons.at(1));
    layout->addLayout(bottom, 3, 0, 1, 3);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(2, 1);

    showLists();
}

QTableWidget* SelDataPoints::grid(int which) const
{
    return m_grids.at(static_cast<size_t>(which - 1));
}

void SelDataPoints::Command1_Click(int index)
{
    switch (index) {
    case 0:
        emit helpRequested(QStringLiteral("LRMain"));
        break;
    case 1:
        reject();
        break;
    case 2: {
        const QString refusal = m_points.accept(m_buffer);
        if (refusal.isEmpty())
            accept();
        else
            tell(refusal);
        break;
    }
    case 3:
        tell(m_points.restore());
        break;
    case 4:
        tell(m_points.setDefault(m_stored, m_settingsFile));
        break;
    case 5:
        moveSelectedRows(1);
        break;
    case 6:
        moveSelectedRows(2);
        break;
    case 7:
        tell(m_points.addAll(m_devices));
        break;
    case 8:
        m_points.removeAll();
        break;
    default:
        return;
    }
    showLists();
}

void SelDataPoints::moveSelectedRows(int which)
{
    QList<int> rows;
    for (const QModelIndex& index : grid(which)->selectionModel()->selectedRows())
        rows.append(index.row());
    // From the last row upward, so the rows still to move keep their numbers.
    std::sort(rows.begin(), rows.end(), std::greater<>());
    for (int row : rows) {
        if (which == 1) {
            const QString refusal = m_points.add(row, m_devices);
            if (!refusal.isEmpty()) {
                tell(refusal);
                return;
            }
        } else {
            m_points.remove(row);
        }
    }
}

void SelDataPoints::moveRow(int which, int row)
{
    if (which == 1)
        tell(m_points.add(row, m_devices));
    else
        m_points.remove(row);
    showLists();
}

void SelDataPoints::showLists()
{
    fillGrid(grid(1), m_points.availableList());
    fillGrid(grid(2), m_points.selectedList());
    for (int which = 1; which <= 2; ++which)
        m_counts.at(static_cast<size_t>(which - 1))
            ->setText(userText("310205", "Total = ") + QString::number(grid(which)->rowCount()));
}

void SelDataPoints::tell(const QString& text)
{
    if (!text.isEmpty())
        userMessages().show(text, UserMessages::Icon::Information);
}

} // namespace lorvane
