// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphCompSetup.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace lorvane {

WaveGraphCompSetup::WaveGraphCompSetup(const QList<WaveCompositionItem>& available,
                                       double sectionStart, double sectionEnd,
                                       const WaveCompositionList& selected, QWidget* parent)
    : QDialog(parent), m_available(available), m_selected(selected), m_sectionStart(sectionStart),
      m_sectionEnd(sectionEnd), m_left(new QTableWidget), m_right(new QTableWidget),
      m_entire(new QRadioButton(userText("503300", "Use Entire Capture"))),
      m_window(new QRadioButton(userText("503301", "Use Selected Window"))), m_property(new QLabel)
{
    setWindowTitle(userText("503302", "Advanced Waveform Analysis Setup"));
    for (QTableWidget* table : {m_left, m_right}) {
        table->setColumnCount(8);
        table->setHorizontalHeaderLabels(WaveCompositionList::columnTitles());
        table->setSelectionBehavior(QAbstractItemView::SelectRows);
        table->setSelectionMode(QAbstractItemView::SingleSelection);
        table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        table->verticalHeader()->hide();
    }
    fill(m_left, m_available);
    fill(m_right, m_selected.items());
    m_entire->setChecked(true);
    m_property->setWordWrap(true);
    connect(m_left, &QTableWidget::currentCellChanged, this, [this](int row) {
        describe(row >= 0 && row < m_available.size() ? &m_available.at(row) : nullptr);
    });
    connect(m_right, &QTableWidget::currentCellChanged, this, [this](int row) {
        describe(row >= 0 && row < m_selected.items().size() ? &m_selected.items().at(row)
                                                             : nullptr);
    });

    auto* addButton = new QPushButton(userText("503303", "Add >>"));
    auto* removeButton = new QPushButton(userText("503304", "<< Remove"));
    connect(addButton, &QPushButton::clicked, this, &WaveGraphCompSetup::add);
    connect(removeButton, &QPushButton::clicked, this, &WaveGraphCompSetup::remove);
    auto* middle = new QVBoxLayout;
    middle->addStretch();
    middle->addWidget(addButton);
    middle->addWidget(removeButton);
    middle->addStretch();

    auto* leftBox = new QGroupBox(userText("503305", "Current Waveform Items"));
    (new QVBoxLayout(leftBox))->addWidget(m_left);
    auto* rightBox = new QGroupBox(userText("503306", "Selected Waveform Items"));
    (new QVBoxLayout(rightBox))->addWidget(m_right);
    auto* lists = new QHBoxLayout;
    lists->addWidget(leftBox, 1);
    lists->addLayout(middle);
    lists->addWidget(rightBox, 1);

    auto* options = new QGroupBox;
    auto* optionLayout = new QHBoxLayout(options);
    optionLayout->addWidget(m_entire);
    optionLayout->addWidget(m_window);
    auto* propertyBox = new QGroupBox(userText("503307", "Original Waveform Property"));
    (new QVBoxLayout(propertyBox))->addWidget(m_property);

    auto* back = new QPushButton(userText("503308", "&Back"));
    auto* graphButton = new QPushButton(userText("503309", "&Graph"));
    auto* help = new QPushButton(userText("503213", "&Help"));
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
    connect(graphButton, &QPushButton::clicked, this, &WaveGraphCompSetup::graph);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRWaveform")); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch();
    buttons->addWidget(back);
    buttons->addWidget(graphButton);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addWidget(options);
    layout->addWidget(propertyBox);
    layout->addLayout(buttons);
    resize(1100, 520);
}

void WaveGraphCompSetup::fill(QTableWidget* table, const QList<WaveCompositionItem>& items)
{
    table->setRowCount(static_cast<int>(items.size()));
    for (int r = 0; r < items.size(); ++r) {
        const QStringList cells = WaveCompositionList::cells(items.at(r));
        for (int c = 0; c < cells.size(); ++c)
            table->setItem(r, c, new QTableWidgetItem(cells.at(c)));
    }
    table->resizeColumnsToContents();
}

void WaveGraphCompSetup::describe(const WaveCompositionItem* item)
{
    m_property->setText(item ? item->device + u'\n' + WaveCompositionList::description(*item)
                             : QString());
}

void WaveGraphCompSetup::add()
{
    const int row = m_left->currentRow();
    const WaveCompositionItem* item =
        row >= 0 && row < m_available.size() && !m_left->selectedItems().isEmpty()
            ? &m_available.at(row)
            : nullptr;
    const QString message =
        m_selected.add(item, m_window->isChecked(), m_sectionStart, m_sectionEnd);
    if (!message.isEmpty()) {
        userMessages().show(message, UserMessages::Icon::Information, windowTitle());
        return;
    }
    fill(m_right, m_selected.items());
    describe(&m_selected.items().last());
}

void WaveGraphCompSetup::remove()
{
    if (m_selected.remove(m_right->currentRow()))
        fill(m_right, m_selected.items());
}

void WaveGraphCompSetup::graph()
{
    const QString message = m_selected.graphMessage();
    if (!message.isEmpty()) {
        userMessages().show(message, UserMessages::Icon::Information, windowTitle());
        return;
    }
    accept();
}

void WaveGraphCompSetup::setUseSelectedWindow(bool on)
{
    (on ? m_window : m_entire)->setChecked(true);
}

} // namespace lorvane
