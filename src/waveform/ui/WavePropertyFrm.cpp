// SPDX-License-Identifier: GPL-3.0-or-later
#include "WavePropertyFrm.h"

#include "platform/UserText.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace lorvane {

WavePropertyFrm::WavePropertyFrm(const QList<WaveformProperties::Row>& rows,
                                 const QString& hookupPicture, QWidget* parent)
    : QDialog(parent), m_rows(rows), m_table(new QTableWidget(static_cast<int>(rows.size()), 2))
{
    setWindowTitle(userText("503220", "Waveform Properties"));
    m_table->setHorizontalHeaderLabels(
        {userText("503221", "Property Name"), userText("503222", "Value")});
    m_table->verticalHeader()->hide();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int r = 0; r < rows.size(); ++r) {
        m_table->setItem(r, 0, new QTableWidgetItem(rows.at(r).first));
        auto* value = new QTableWidgetItem(rows.at(r).second);
        if (rows.at(r).first == WaveformProperties::hookupLabel() && QFile::exists(hookupPicture))
            value->setIcon(QIcon(hookupPicture));
        m_table->setItem(r, 1, value);
    }
    m_table->setIconSize(QSize(48, 48));
    m_table->resizeColumnsToContents();
    m_table->horizontalHeader()->setStretchLastSection(true);

    auto* help = new QPushButton(userText("503213", "&Help"));
    auto* cancel = new QPushButton(userText("503212", "&Cancel"));
    auto* copyButton = new QPushButton(userText("503223", "C&opy"));
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRWaveform")); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(copyButton, &QPushButton::clicked, this, &WavePropertyFrm::copy);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch();
    buttons->addWidget(copyButton);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addLayout(buttons);
    resize(460, 620);
}

void WavePropertyFrm::copy() const
{
    QApplication::clipboard()->setText(WaveformProperties::clipboardText(m_rows));
}

} // namespace lorvane
