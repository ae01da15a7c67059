// SPDX-License-Identifier: GPL-3.0-or-later
#include "frmDeviceMasterLog.h"

#include "platform/UserText.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace lorvane {

frmDeviceMasterLog::frmDeviceMasterLog(const QString& dmlPath, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmDeviceMasterLog"));
    setWindowTitle(userText("310500", "Please select the log you want to view"));
    m_log.init(dmlPath);

    m_grid = new QTableWidget(static_cast<int>(m_log.rows().size()), 2);
    m_grid->setObjectName(QStringLiteral("grid_LogsAvailable"));
    m_grid->setHorizontalHeaderLabels({userText("310501", "Log"), userText("310502", "Status")});
    m_grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_grid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_grid->verticalHeader()->setVisible(false);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setAlternatingRowColors(true);
    for (int r = 0; r < m_log.rows().size(); ++r) {
        const DeviceMasterLog::Row& row = m_log.rows().at(r);
        m_grid->setItem(r, 0, new QTableWidgetItem(row.displayName));
        auto* status = new QTableWidgetItem(DeviceMasterLog::statusText(row.status));
        if (row.status != DeviceMasterLog::Status::Available)
            status->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
        m_grid->setItem(r, 1, status);
    }
    // Room for all seventeen logs without scrolling.
    const int rowHeight = fontMetrics().height() + 8;
    m_grid->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_grid->setMinimumSize(360, rowHeight * (DeviceMasterLog::logCount + 1) + 8);
    connect(m_grid, &QTableWidget::cellClicked, this, [this](int row, int) { selectRow(row); });
    connect(m_grid, &QTableWidget::cellDoubleClicked, this, [this](int row, int) {
        selectRow(row);
        cmd_ViewSelLog_Click();
    });

    m_label = new QLabel(DeviceMasterLog::selectedLabel(-1));
    m_label->setObjectName(QStringLiteral("lbl_SelectedLog"));
    QFont bold = m_label->font();
    bold.setBold(true);
    m_label->setFont(bold);

    auto* view = new QPushButton(userText("310503", "view"));
    view->setObjectName(QStringLiteral("cmd_ViewSelLog"));
    view->setDefault(true);
    connect(view, &QPushButton::clicked, this, &frmDeviceMasterLog::cmd_ViewSelLog_Click);
    auto* cancel = new QPushButton(userText("310504", "cancel"));
    cancel->setObjectName(QStringLiteral("cmd_Cancel"));
    connect(cancel, &QPushButton::clicked, this, [this] {
        m_cancelled = true;
        reject();
    });

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_label, 1);
    buttons->addWidget(view);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_grid);
    layout->addLayout(buttons);
}

void frmDeviceMasterLog::selectRow(int row)
{
    m_selected = row >= 0 && row < m_log.rows().size() ? row : -1;
    m_label->setText(DeviceMasterLog::selectedLabel(m_selected));
    if (m_selected >= 0)
        m_grid->selectRow(m_selected);
}

void frmDeviceMasterLog::cmd_ViewSelLog_Click()
{
    accept();
}

QString frmDeviceMasterLog::selectedPath() const
{
    return m_cancelled ? QString() : m_log.selectedPath(m_selected);
}

} // namespace lorvane
