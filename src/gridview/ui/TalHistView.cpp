// SPDX-License-Identifier: GPL-3.0-or-later
#include "TalHistView.h"

#include "GridTableModel.h"
#include "SortOptionsFrm.h"
#include "app/RunContext.h"
#include "graph/ui/GraphWindows.h"
#include "gridview/LogViewTexts.h"
#include "platform/Fault.h"
#include "platform/StorageError.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "query/engine/SortOptions.h"
#include "query/selection/TopQueryBuffer.h"
#include "store/TempQueryDatabase.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>

namespace lorvane {

namespace {

QueryContext baseContext(RunContext& context)
{
    QueryContext base;
    base.scratch = context.scratch.get();
    base.dictionary = context.dictionary.get();
    base.tempLogRecSize = context.settings.tempLogRecSize;
    base.dataFormat = context.settings.dataFormat;
    base.useScaledFormats = context.settings.useUserHalyxScaledFormats;
    return base;
}

/// Grid 1 of a PQ view lists the captures of a record; the settings of a row go to grid 3.
int detailGrid(LogKind kind, int grid)
{
    return kind == LogKind::PowerQuality && grid == 0 ? 1 : 3;
}

} // namespace

bool TalHistView::loadedKind(LogKind kind) const
{
    // The status and compliance pages have no sort: they are not read from query tables.
    return m_session.loaded() && kind != LogKind::DatabaseStatus && kind != LogKind::EN50160;
}

TalHistView::TalHistView(RunContext& context, QWidget* parent)
    : QWidget(parent), m_context(context), m_session(baseContext(context))
{
    build();
}

TalHistView::~TalHistView() = default;

void TalHistView::build()
{
    m_typeLabel = new QLabel(this);
    m_combo1 = new QComboBox(this);
    m_combo2 = new QComboBox(this);
    m_combo3 = new QComboBox(this);
    m_label1 = new QLabel(this);
    m_label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_status = new QLabel(this);
    m_captions = new QTabBar(this);
    m_captions->setExpanding(false);
    m_stack = new QStackedWidget(this);

    const QString images = m_context.paths.pictureFolder();
    for (int i = 0; i < int(m_grids.size()); ++i) {
        auto* view = new QTableView(this);
        view->setObjectName(QStringLiteral("vsFlexGrid1_%1").arg(i));
        auto* model = new GridTableModel(view);
        model->setImageFolder(images);
        view->setModel(model);
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setAlternatingRowColors(true);
        view->setWordWrap(false);
        // Fixed row heights keep a million-row grid from measuring every row.
        view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 6);
        auto* copy = new QAction(userText("406110", "&Copy"), view);
        connect(copy, &QAction::triggered, this, &TalHistView::copySelection);
        view->addAction(copy);
        view->setContextMenuPolicy(Qt::ActionsContextMenu);
        connect(view, &QTableView::doubleClicked, this,
                [this, i](const QModelIndex& index) { rowActivated(i, index); });
        connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this, i, model](const QModelIndex& index) {
                    showStatus(m_session.statusText(i, model->dataRow(index.row())));
                });
        m_grids[size_t(i)] = view;
        m_models[size_t(i)] = model;
        m_stack->addWidget(view);
    }

    static const char* const names[][2] = {{"406120", "&Sort"}, {"406121", "&Graph"},
                                           {"406122", "&Help"}, {"406123", "&Back"},
                                           {"406124", "&Up"},   {"406125", "&Down"}};
    auto* buttons = new QHBoxLayout;
    for (int i = 0; i < int(m_commands.size()); ++i) {
        auto* button = new QPushButton(userText(names[i][0], names[i][1]), this);
        m_commands[size_t(i)] = button;
        buttons->addWidget(button);
    }
    static const char* const checkNames[][2] = {{"407000", "Graph Record 1"},
                                                {"407001", "Graph Record 2"}};
    for (int i = 0; i < int(m_checks.size()); ++i) {
        auto* check = new QCheckBox(userText(checkNames[i][0], checkNames[i][1]), this);
        check->setObjectName(QStringLiteral("Check1_%1").arg(i));
        // Only a click of the user binds: the marks are set from the session without one.
        connect(check, &QCheckBox::clicked, this,
                [this, i](bool checked) { checkToggled(i, checked); });
        m_checks[size_t(i)] = check;
        buttons->addWidget(check);
    }
    connect(m_commands[SortCommand], &QPushButton::clicked, this, &TalHistView::openSort);
    connect(m_commands[GraphCommand], &QPushButton::clicked, this, &TalHistView::graph);
    connect(m_commands[HelpCommand], &QPushButton::clicked, this,
            [this] { emit helpRequested(LogViewTexts::helpTopic(logKind())); });
    connect(m_commands[BackCommand], &QPushButton::clicked, this, [this] {
        hide();
        emit backRequested();
    });
    connect(m_commands[UpCommand], &QPushButton::clicked, this, [this] { step(-1); });
    connect(m_commands[DownCommand], &QPushButton::clicked, this, [this] { step(1); });
    connect(m_combo1, &QComboBox::activated, this, &TalHistView::typeChosen);
    connect(m_combo2, &QComboBox::activated, this, &TalHistView::sortChosen);
    connect(m_combo3, &QComboBox::activated, this, &TalHistView::pageChosen);
    connect(m_captions, &QTabBar::currentChanged, this, &TalHistView::selectGrid);

    auto* choices = new QHBoxLayout;
    choices->addWidget(m_typeLabel);
    choices->addWidget(m_combo1, 1);
    choices->addWidget(new QLabel(userText("406130", "Sort Criteria"), this));
    choices->addWidget(m_combo2, 1);
    choices->addWidget(new QLabel(userText("406131", "Page"), this));
    choices->addWidget(m_combo3);
    auto* range = new QHBoxLayout;
    range->addWidget(new QLabel(userText("406132", "Time Range"), this));
    range->addWidget(m_label1, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addLayout(range);
    layout->addWidget(m_captions);
    layout->addWidget(m_stack, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_status);
    refresh();
}

QTableView* TalHistView::grid(int index) const
{
    return m_grids.at(size_t(index));
}

QPushButton* TalHistView::command(int index) const
{
    return m_commands.at(size_t(index));
}

LogKind TalHistView::logKind() const
{
    return m_session.logKind();
}

void TalHistView::setProgressFactory(std::function<std::unique_ptr<LoadProgress>()> factory)
{
    m_progressFactory = std::move(factory);
}

bool TalHistView::showRequest(const ViewDispatch::Request& request, TopQueryBuffer& buffer)
{
    // The request is taken inside the guarded work: one that arrives while another load runs
    // must not change what that load fills.
    const bool ran = runGuarded([&](LoadProgress* progress) {
        m_session.setRequest(request, &buffer);
        setWindowTitle(LogViewTexts::windowTitle(m_context.shortName, logKind()));
        m_session.LoadQuery(request.fresh, progress);
    });
    if (ran)
        showGrids();
    return ran;
}

void TalHistView::LoadQuery(bool fresh)
{
    const bool ran = runGuarded([this, fresh](LoadProgress* progress) {
        setWindowTitle(LogViewTexts::windowTitle(m_context.shortName, logKind()));
        m_session.LoadQuery(fresh, progress);
    });
    if (ran)
        showGrids();
}

bool TalHistView::runGuarded(const std::function<void(LoadProgress*)>& work)
{
    // The loads serve window events at their steps: no other work may start meanwhile.
    WorkGuard::Scope scope = m_context.work.enter();
    if (!scope)
        return false;
    // The settings as they are now: System Properties may have changed them since the last.
    m_session.setBase(baseContext(m_context));
    for (QPushButton* button : m_commands)
        button->setEnabled(false);
    std::unique_ptr<LoadProgress> progress = m_progressFactory ? m_progressFactory() : nullptr;
    scope.watch(progress.get());
    QString failure;
    try {
        work(progress.get());
    } catch (const Fault& fault) {
        failure = fault.message();
    } catch (const StorageError& error) {
        failure = userText("406140", "The query tables could not be read") + QStringLiteral(": ") +
                  error.detail();
    } catch (const std::exception& error) {
        failure = QString::fromLocal8Bit(error.what());
    } catch (...) {
        failure = userText("406142", "The load failed for an unknown reason") + u'.';
    }
    scope.watch(nullptr);
    progress.reset();
    if (!failure.isEmpty())
        userMessages().show(failure, UserMessages::Icon::Warning, windowTitle());
    return true;
}

void TalHistView::showGrids()
{
    const ViewResult& result = m_session.result();
    for (int i = 0; i < int(m_models.size()); ++i) {
        m_models[size_t(i)]->setTable(result.grids.value(i));
        // Sized from the rows in view, so a long grid costs no more than a short one.
        m_grids[size_t(i)]->resizeColumnsToContents();
    }
    refresh();
    selectGrid(0);
}

void TalHistView::refresh()
{
    const ViewResult& result = m_session.result();
    const LogKind kind = logKind();
    m_filling = true;
    m_typeLabel->setText(m_session.typeCaption());
    m_combo1->clear();
    m_combo1->addItems(m_session.typeChoices());
    m_combo1->setCurrentIndex(m_session.typeChoice());
    m_typeLabel->setVisible(m_combo1->count() > 0);
    m_combo1->setVisible(m_combo1->count() > 0);
    m_combo2->setEnabled(loadedKind(kind));
    m_combo2->clear();
    m_combo2->addItems(m_session.sortItems());
    m_combo2->setCurrentIndex(m_session.sort().item);
    m_combo3->clear();
    for (int page = 1; page <= result.pages; ++page)
        m_combo3->addItem(QString::number(page));
    m_combo3->setCurrentIndex(result.page - 1);
    m_label1->setText(result.rangeText);
    while (m_captions->count() > 0)
        m_captions->removeTab(0);
    for (int i = 0; i < int(m_models.size()); ++i) {
        const GridTable& table = m_models[size_t(i)]->table();
        if (!table.columns.isEmpty() || !table.caption.isEmpty()) {
            const int tab = m_captions->addTab(table.caption);
            m_captions->setTabData(tab, i);
        }
    }
    m_filling = false;

    m_commands[SortCommand]->setEnabled(loadedKind(kind));
    const bool loaded = m_session.loaded();
    m_commands[GraphCommand]->setEnabled(loaded && GraphWindows::has(int(kind)));
    m_commands[HelpCommand]->setEnabled(true);
    m_commands[BackCommand]->setEnabled(true);
    m_commands[UpCommand]->setEnabled(m_session.canUp());
    m_commands[DownCommand]->setEnabled(m_session.canDown());
    const bool marks = loaded && LogViewSession::hasCheckMarks(kind);
    for (int i = 0; i < int(m_checks.size()); ++i) {
        QCheckBox* check = m_checks[size_t(i)];
        check->setVisible(marks);
        check->setChecked(m_session.bound(i).has_value());
    }
    // A refill leaves no row selected, so a row's text would be stale.
    showStatus(result.cancelled ? userText("406141", "The load was cancelled") + QLatin1Char('.')
                                : QString());
}

void TalHistView::showStatus(const QString& text)
{
    m_status->setText(text);
    emit statusTextChanged(text);
}

QString TalHistView::statusText() const
{
    return m_status->text();
}

QCheckBox* TalHistView::checkMark(int index) const
{
    return m_checks.at(size_t(index));
}

std::optional<LogViewSession::BoundRecord> TalHistView::boundRecord(int index) const
{
    return m_session.bound(index);
}

void TalHistView::checkToggled(int index, bool checked)
{
    if (!checked) {
        m_session.release(index);
        return;
    }
    const int row = selectedRow();
    if (m_session.bind(index, row))
        return;
    m_checks[size_t(index)]->setChecked(false);
    const QString message = m_session.checkMessage(row);
    if (!message.isEmpty())
        userMessages().show(message, UserMessages::Icon::Information, windowTitle());
}

bool TalHistView::confirmExit()
{
    return userMessages().ask(userText("407002", "Are you sure you want to exit the software?"),
                              windowTitle());
}

void TalHistView::selectGrid(int tab)
{
    if (m_filling || tab < 0 || tab >= m_captions->count())
        return;
    m_stack->setCurrentIndex(m_captions->tabData(tab).toInt());
    if (m_captions->currentIndex() != tab)
        m_captions->setCurrentIndex(tab);
}

void TalHistView::showCaption(int gridIndex)
{
    for (int tab = 0; tab < m_captions->count(); ++tab) {
        if (m_captions->tabData(tab).toInt() == gridIndex) {
            selectGrid(tab);
            return;
        }
    }
}

void TalHistView::step(int delta)
{
    bool changed = false;
    if (!runGuarded([this, delta, &changed](LoadProgress* progress) {
            changed = m_session.step(delta, progress);
        }))
        return;
    if (changed)
        showGrids();
    else
        refresh();
}

void TalHistView::pageChosen(int index)
{
    int delta = index + 1 - m_session.result().page;
    // Pages are reached one step at a time: a step past the last may read a new slice.
    while (delta != 0) {
        const int sign = delta > 0 ? 1 : -1;
        step(sign);
        delta -= sign;
    }
}

void TalHistView::typeChosen(int index)
{
    if (m_filling)
        return;
    if (runGuarded([this, index](LoadProgress*) { m_session.setTypeChoice(index); }))
        showGrids();
}

void TalHistView::sortChosen(int index)
{
    if (m_filling)
        return;
    SortState sort = m_session.sort();
    sort.item = index;
    if (runGuarded([this, sort](LoadProgress*) { m_session.setSort(sort); }))
        showGrids();
}

void TalHistView::openSort()
{
    const bool snapshots = logKind() == LogKind::Snapshots || logKind() == LogKind::Demand;
    SortOptionsFrm dialog(m_session.sortItems(),
                          snapshots ? SortOptions::snapshotGroupings() : QStringList(),
                          m_session.sort(), this);
    connect(&dialog, &SortOptionsFrm::helpRequested, this, &TalHistView::helpRequested);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SortState sort = dialog.state();
    if (runGuarded([this, sort](LoadProgress*) { m_session.setSort(sort); }))
        showGrids();
}

int TalHistView::selectedRow() const
{
    const QModelIndex current = m_grids[0]->selectionModel()->currentIndex();
    return current.isValid() ? m_models[0]->dataRow(current.row()) : -1;
}

void TalHistView::graph()
{
    const LogViewSession::GraphAction action = m_session.graph(selectedRow());
    switch (action.kind) {
    case LogViewSession::GraphAction::Kind::Message:
        userMessages().show(action.message, UserMessages::Icon::Information, windowTitle());
        break;
    case LogViewSession::GraphAction::Kind::Graph:
        emit graphRequested(action.selection);
        break;
    case LogViewSession::GraphAction::Kind::Unavailable:
        break;
    }
}

void TalHistView::rowActivated(int gridIndex, const QModelIndex& index)
{
    const int row = m_models[size_t(gridIndex)]->dataRow(index.row());
    if (row < 0)
        return;
    std::optional<GridTable> detail;
    runGuarded([&](LoadProgress*) { detail = m_session.rowDetail(gridIndex, row); });
    if (!detail)
        return;
    const int target = detailGrid(logKind(), gridIndex);
    m_models[size_t(target)]->setTable(*detail);
    refresh();
    showCaption(target);
}

QString TalHistView::selectionText(int gridIndex) const
{
    const QModelIndexList cells = m_grids[size_t(gridIndex)]->selectionModel()->selectedIndexes();
    if (cells.isEmpty())
        return {};
    int top = cells.first().row(), bottom = top, left = cells.first().column(), right = left;
    for (const QModelIndex& cell : cells) {
        top = std::min(top, cell.row());
        bottom = std::max(bottom, cell.row());
        left = std::min(left, cell.column());
        right = std::max(right, cell.column());
    }
    const GridTableModel* model = m_models[size_t(gridIndex)];
    QStringList lines;
    for (int r = top; r <= bottom; ++r) {
        QStringList cellsOfRow;
        for (int c = left; c <= right; ++c) {
            const QModelIndex cell = model->index(r, c);
            cellsOfRow << (m_grids[size_t(gridIndex)]->selectionModel()->isSelected(cell)
                               ? model->data(cell).toString()
                               : QString());
        }
        lines << cellsOfRow.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

void TalHistView::copySelection()
{
    const QString text = selectionText(m_stack->currentIndex());
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void TalHistView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace lorvane
