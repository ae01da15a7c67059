// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelPGraph.h"

#include "PGraphFailure.h"
#include "platform/LoadProgress.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "platform/WorkGuard.h"
#include "powergraph/PGraphChoiceCheck.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QSet>
#include <QTableWidget>
#include <QVBoxLayout>

namespace lorvane {

namespace {

/// The wait line of the dialog as the records' progress.
class WaitLine : public LoadProgress
{
public:
    explicit WaitLine(QLabel* label) : m_label(label) {}
    void status(const QString& text) override
    {
        m_label->setText(text);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }

private:
    QLabel* m_label;
};

} // namespace

SelPGraph::SelPGraph(TempQueryDatabase& scratch, SqliteDatabase* dictionary, qint64 query,
                     WorkGuard* work, bool offerTrend, QWidget* parent)
    : QDialog(parent), m_scratch(scratch), m_query(query), m_work(work),
      m_choices(PGraphRecords::choices(scratch, query, dictionary))
{
    setWindowTitle(userText("802040", "Power Graph"));
    auto* layout = new QVBoxLayout(this);
    m_kind = new QComboBox(this);
    m_kind->addItems({userText("801050", "Circular Graph"), userText("801051", "XY Graph")});
    if (offerTrend)
        m_kind->addItem(userText("802047", "Trend Graph"));
    layout->addWidget(m_kind);
    m_grid = new QTableWidget(int(m_choices.size()), 2, this);
    m_grid->setObjectName(QStringLiteral("vsFlexGrid1"));
    m_grid->setHorizontalHeaderLabels(
        {userText("802041", "Data ID"), userText("802042", "Data Name")});
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::MultiSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setStretchLastSection(true);
    for (int row = 0; row < m_choices.size(); ++row) {
        m_grid->setItem(row, 0, new QTableWidgetItem(QString::number(m_choices.at(row).dataId)));
        m_grid->setItem(row, 1, new QTableWidgetItem(m_choices.at(row).name));
    }
    m_grid->resizeColumnToContents(0);
    layout->addWidget(m_grid, 1);
    m_counters = new QLabel(this);
    m_wait = new QLabel(this);
    layout->addWidget(m_counters);
    layout->addWidget(m_wait);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(userText("802015", "&OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(userText("802016", "&Cancel"), QDialogButtonBox::RejectRole);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (confirm())
            accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_grid, &QTableWidget::itemSelectionChanged, this, &SelPGraph::updateCounters);
    updateCounters();
    resize(460, 480);
}

QList<int> SelPGraph::chosenRows() const
{
    QSet<int> rows;
    for (const QModelIndex& index : m_grid->selectionModel()->selectedRows())
        rows.insert(index.row());
    QList<int> out(rows.cbegin(), rows.cend());
    std::sort(out.begin(), out.end());
    return out;
}

void SelPGraph::choose(const QList<int>& rows)
{
    m_grid->clearSelection();
    for (int row : rows)
        m_grid->selectRow(row);
    updateCounters();
}

void SelPGraph::setKind(PGraphView::Kind kind)
{
    m_kind->setCurrentIndex(int(kind));
}

PGraphView::Kind SelPGraph::kind() const
{
    return m_kind->currentIndex() == 1 ? PGraphView::Kind::XY : PGraphView::Kind::Circular;
}

bool SelPGraph::trendChosen() const
{
    return m_kind->currentIndex() == 2;
}

void SelPGraph::chooseTrend()
{
    m_kind->setCurrentIndex(2);
}

QString SelPGraph::counterText() const
{
    return m_counters->text();
}

void SelPGraph::updateCounters()
{
    const PGraphChoiceCheck::Counters c = PGraphChoiceCheck::counters(m_choices, chosenRows());
    m_counters->setText(
        userText("802043", "Items") + QStringLiteral(": ") + QString::number(c.items) +
        QStringLiteral("   ") + userText("802044", "devices") + QStringLiteral(": ") +
        QString::number(c.devices) + QStringLiteral("   ") + userText("802045", "total items") +
        QStringLiteral(": ") + QString::number(c.total));
}

bool SelPGraph::confirm()
{
    if (trendChosen())
        return true;
    const QList<int> rows = chosenRows();
    if (const std::optional<QString> refused = PGraphChoiceCheck::check(rows.size())) {
        userMessages().show(*refused);
        return false;
    }
    std::optional<WorkGuard::Scope> scope;
    if (m_work) {
        scope.emplace(m_work->enter());
        if (!*scope) {
            userMessages().show(
                userText("802046", "Other work is running. Please try again when it has ended."));
            return false;
        }
    }
    QList<PGraphChoice> chosen;
    for (int row : rows)
        chosen << m_choices.at(row);
    WaitLine progress(m_wait);
    if (scope)
        scope->watch(&progress);
    try {
        m_items = PGraphRecords::load(m_scratch, m_query, chosen, &progress);
    } catch (const std::exception& e) {
        m_wait->clear();
        userMessages().show(powerGraphFailure(e), UserMessages::Icon::Critical);
        return false;
    }
    m_wait->clear();
    return true;
}

} // namespace lorvane
