// SPDX-License-Identifier: GPL-3.0-or-later
#include "SortOptionsFrm.h"

#include "platform/UserText.h"
#include "query/engine/SortOptions.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace lorvane {

SortOptionsFrm::SortOptionsFrm(const QStringList& items, const QStringList& recordTypes,
                               const SortState& state, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(userText("406100", "Sort Data Options"));
    m_recordTypes = new QListWidget(this);
    m_recordTypes->setObjectName(QStringLiteral("RecordTypes"));
    m_recordTypes->setAccessibleName(userText("406101", "Record Types"));
    m_recordTypes->addItems(recordTypes);
    m_recordTypes->setEnabled(!recordTypes.isEmpty());
    if (!recordTypes.isEmpty())
        m_recordTypes->setCurrentRow(qBound(0, state.recordType, int(recordTypes.size()) - 1));

    m_order = new QComboBox(this);
    m_order->addItems(SortOptions::directionNames());
    m_order->setCurrentIndex(state.descending ? 1 : 0);

    m_items = new QListWidget(this);
    m_items->setObjectName(QStringLiteral("SelectedItems"));
    m_items->setAccessibleName(userText("406102", "Selected Items"));
    m_items->addItems(items);
    m_items->setCurrentRow(qBound(0, state.item, int(items.size()) - 1));
    // A double click picks the item and closes, as the list is the dialog's main choice.
    connect(m_items, &QListWidget::itemDoubleClicked, this, &QDialog::accept);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = buttons->addButton(userText("406103", "&OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(userText("406104", "&Cancel"), QDialogButtonBox::RejectRole);
    QPushButton* help = buttons->addButton(userText("406105", "&Help"), QDialogButtonBox::HelpRole);
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRSort")); });

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(userText("406106", "Record Type"), this), 0, 0);
    layout->addWidget(new QLabel(userText("406107", "Sort Item"), this), 0, 1);
    layout->addWidget(m_recordTypes, 1, 0);
    layout->addWidget(m_items, 1, 1);
    layout->addWidget(new QLabel(userText("406108", "Sort Order"), this), 2, 0);
    layout->addWidget(m_order, 2, 1);
    layout->addWidget(buttons, 3, 0, 1, 2);
    resize(460, 340);
}

SortState SortOptionsFrm::state() const
{
    SortState state;
    state.item = qMax(0, m_items->currentRow());
    state.descending = m_order->currentIndex() == 1;
    state.recordType = m_recordTypes->count() > 0 ? qMax(0, m_recordTypes->currentRow()) : 0;
    return state;
}

} // namespace lorvane
