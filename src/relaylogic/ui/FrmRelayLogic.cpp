// SPDX-License-Identifier: GPL-3.0-or-later
#include "FrmRelayLogic.h"

#include "RelayLogicCanvas.h"
#include "graph/ui/GraphOutput.h"
#include "gridview/ui/GridTableModel.h"
#include "platform/Fault.h"
#include "platform/StorageError.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "relaylogic/RelayLogicGrid.h"
#include "relaylogic/RelayLogicTexts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace lorvane {

FrmRelayLogic::FrmRelayLogic(SqliteDatabase& scratch, const QueryNumbers& numbers,
                             QList<QVariantMap> rows, QWidget* parent)
    : QWidget(parent, Qt::Window), m_session(scratch, numbers, std::move(rows))
{
    setObjectName(QStringLiteral("FrmRelayLogic"));
    m_page = new QWidget(this);
    m_picture = new RelayLogicCanvas(m_page);
    m_grid = new QTableView(m_page);
    m_grid->setObjectName(QStringLiteral("vsFlexGrid1"));
    m_model = new GridTableModel(this);
    m_grid->setModel(m_model);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(m_grid->fontMetrics().height() + 6);
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* pageLayout = new QVBoxLayout(m_page);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->addWidget(m_picture, 3);
    pageLayout->addWidget(m_grid, 2);

    const std::array<QString, CommandCount> captions{
        userText("901050", "Print"), userText("901051", "Previous"), userText("901052", "Next"),
        userText("901053", "OK"), userText("901054", "Help")};
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int i = 0; i < CommandCount; ++i) {
        m_commands[i] = new QPushButton(captions.at(i), this);
        m_commands[i]->setObjectName(QStringLiteral("Command1_%1").arg(i));
        buttons->addWidget(m_commands[i]);
    }
    connect(m_commands[Print], &QPushButton::clicked, this, &FrmRelayLogic::print);
    connect(m_commands[Previous], &QPushButton::clicked, this, [this] { step(-1); });
    connect(m_commands[Next], &QPushButton::clicked, this, [this] { step(1); });
    // OK closes the frame's sub-window that holds the window (or the window standing alone).
    connect(m_commands[Ok], &QPushButton::clicked, this, [this] { window()->close(); });
    connect(m_commands[Help], &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRRelayLogic")); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_page, 1);
    layout->addLayout(buttons);
    resize(1000, 760);
}

FrmRelayLogic::~FrmRelayLogic() = default;

bool FrmRelayLogic::guarded(const std::function<void()>& work)
{
    QString failure;
    try {
        work();
        return true;
    } catch (const Fault& fault) {
        failure = fault.message();
    } catch (const StorageError& error) {
        failure = userText("901055", "The relay record could not be read") + QStringLiteral(": ") +
                  error.detail();
    } catch (const std::exception& error) {
        failure = QString::fromLocal8Bit(error.what());
    } catch (...) {
        failure = userText("901056", "The relay logic failed for an unknown reason") + u'.';
    }
    userMessages().show(failure, UserMessages::Icon::Critical, windowTitle());
    return false;
}

bool FrmRelayLogic::ShowRelayLogic(int position)
{
    const bool shown = guarded([&] { m_session.open(position); });
    showTree();
    return shown;
}

void FrmRelayLogic::step(int delta)
{
    guarded([&] {
        const QString end = m_session.step(delta);
        if (!end.isEmpty())
            userMessages().show(end, UserMessages::Icon::Information, windowTitle());
    });
    showTree();
}

void FrmRelayLogic::showTree()
{
    const auto& tree = m_session.tree();
    if (tree) {
        setWindowTitle(RelayLogicTexts::title(tree->deviceTypeId));
        m_model->setTable(RelayLogicGrid::table(*tree));
        m_grid->resizeColumnsToContents();
    }
    m_picture->setTree(tree);
}

bool FrmRelayLogic::gridPrintable() const
{
    const QScrollBar* bar = m_grid->verticalScrollBar();
    return bar->minimum() == bar->maximum();
}

void FrmRelayLogic::print()
{
    guarded([&] {
        if (const QString refusal = m_session.printRefusal(); !refusal.isEmpty()) {
            userMessages().show(refusal, UserMessages::Icon::Warning, windowTitle());
            return;
        }
        // A grid longer than its part of the page would be cut: the tree is printed alone.
        QWidget* page = m_page;
        if (!gridPrintable()) {
            userMessages().show(RelayLogicTexts::cannotPrintGrid(), UserMessages::Icon::Warning,
                                windowTitle());
            page = m_picture;
        }
        GraphOutput::printWithPreview(page, this);
    });
}

} // namespace lorvane
