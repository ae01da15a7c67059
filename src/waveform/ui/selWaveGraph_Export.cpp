// SPDX-License-Identifier: GPL-3.0-or-later
#include "selWaveGraph_Export.h"

#include "platform/UserText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace lorvane {

selWaveGraph_Export::selWaveGraph_Export(const QStringList& graphs, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget)
{
    setWindowTitle(userText("503210", "Select a waveform graph to export"));
    m_list->addItems(graphs);
    if (!graphs.isEmpty())
        m_list->setCurrentRow(0);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(userText("503211", "&OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(userText("503212", "&Cancel"), QDialogButtonBox::RejectRole);
    QPushButton* help = buttons->addButton(userText("503213", "&Help"), QDialogButtonBox::HelpRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRWaveform")); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(userText("503214", "Available graphs")));
    layout->addWidget(m_list);
    layout->addWidget(buttons);
}

int selWaveGraph_Export::chosen() const
{
    return m_list->currentRow();
}

} // namespace lorvane
