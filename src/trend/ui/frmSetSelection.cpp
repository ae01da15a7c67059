// SPDX-License-Identifier: GPL-3.0-or-later
#include "frmSetSelection.h"

#include "platform/LoadProgress.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "platform/WorkGuard.h"
#include "store/StampedTime.h"
#include "store/WallClock.h"

#include <QApplication>
#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTimeEdit>

namespace lorvane {

namespace {

/// The analysis serves the window at each hour, so the status list grows as it runs.
class ServedProgress : public LoadProgress
{
public:
    void status(const QString&) override {}

protected:
    void serve() override { QApplication::processEvents(); }
};

QString hourText(const QDateTime& hour)
{
    return hour.isValid() ? hour.toString(QStringLiteral("yyyy/MM/dd HH:00")) : QString();
}

} // namespace

frmSetSelection::frmSetSelection(WorkGuard& work, QWidget* parent)
    : QWidget(parent), m_work(work), m_file(new QLineEdit), m_dateStart(new QDateEdit),
      m_timeStart(new QTimeEdit), m_dateEnd(new QDateEdit), m_timeEnd(new QTimeEdit),
      m_grid(new QTableWidget(0, 4)), m_status(new QListWidget)
{
    setObjectName(QStringLiteral("frmSetSelection"));
    setWindowTitle(userText("702020", "Historical Overview"));
    m_file->setObjectName(QStringLiteral("entryFilename"));
    m_grid->setObjectName(QStringLiteral("gridAnalysis"));
    m_status->setObjectName(QStringLiteral("listStatus"));
    m_grid->setHorizontalHeaderLabels({userText("702021", "Sets"), userText("702022", "First"),
                                       userText("702023", "Last"),
                                       userText("702024", "Total Points")});
    m_grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (QDateEdit* date : {m_dateStart, m_dateEnd})
        date->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    for (QTimeEdit* time : {m_timeStart, m_timeEnd})
        time->setDisplayFormat(QStringLiteral("HH:mm:ss"));

    auto* range = new QGroupBox(userText("702025", "View Range"));
    range->setObjectName(QStringLiteral("frameTimeRange"));
    auto* form = new QFormLayout(range);
    auto pair = [](QWidget* a, QWidget* b) {
        auto* row = new QHBoxLayout;
        row->addWidget(a);
        row->addWidget(b);
        return row;
    };
    form->addRow(userText("702026", "Start Time"), pair(m_dateStart, m_timeStart));
    form->addRow(userText("702027", "End Time"), pair(m_dateEnd, m_timeEnd));

    auto* buttons = new QHBoxLayout;
    const std::tuple<const char*, const char*, const char*, void (frmSetSelection::*)()> presses[] =
        {{"CmdRefresh", "702028", "Refresh", &frmSetSelection::loadAnalysis},
         {"CmdView", "702029", "View", &frmSetSelection::viewSets},
         {"CmdAnalyze", "702030", "Analyze", &frmSetSelection::analyze}};
    for (const auto& [name, id, text, press] : presses) {
        auto* button = new QPushButton(userText(id, text));
        button->setObjectName(QString::fromLatin1(name));
        buttons->addWidget(button);
        const auto slot = press;
        connect(button, &QPushButton::clicked, this,
                [this, slot] { guarded([&] { (this->*slot)(); }); });
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_file);
    layout->addWidget(range);
    layout->addWidget(m_grid, 2);
    layout->addWidget(m_status, 1);
    layout->addLayout(buttons);
    resize(720, 620);
}

void frmSetSelection::line(const QString& text)
{
    m_status->addItem(text);
    m_status->scrollToBottom();
}

void frmSetSelection::guarded(const std::function<void()>& press)
{
    try {
        press();
    } catch (const std::exception& e) {
        // The fault ends the step; its words stay in the status list as well.
        line(QString::fromUtf8(e.what()));
        userMessages().show(QString::fromUtf8(e.what()), UserMessages::Icon::Warning);
    }
}

void frmSetSelection::loadAnalysis()
{
    m_sets = OverviewAnalysis::load(m_file->text(), [this](const QString& t) { line(t); });
    m_grid->setRowCount(int(m_sets.size()));
    for (int r = 0; r < m_sets.size(); ++r) {
        const OverviewSet& set = m_sets.at(r);
        const QString cells[] = {QString::number(set.dataId), hourText(set.first),
                                 hourText(set.last), QString::number(set.totalPoints)};
        for (int c = 0; c < 4; ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            if (c == 3)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_grid->setItem(r, c, item);
        }
    }
    QDateTime first, last;
    for (const OverviewSet& set : m_sets) {
        if (set.first.isValid() && (!first.isValid() || set.first < first))
            first = set.first;
        if (set.last.isValid() && (!last.isValid() || set.last > last))
            last = set.last;
    }
    if (first.isValid())
        setRange(first, last.addSecs(3599));
}

void frmSetSelection::analyze()
{
    const QString question =
        userText("702031", "Analyze writes the overview tables into the meter file") +
        QStringLiteral(" ") + m_file->text() + QStringLiteral(". ") +
        userText("702032", "Continue?");
    if (!userMessages().ask(question))
        return;
    WorkGuard::Scope scope = m_work.enter();
    if (!scope)
        return;
    ServedProgress progress;
    scope.watch(&progress);
    OverviewAnalysis::analyze(
        m_file->text(), [this](const QString& t) { line(t); }, progress);
    loadAnalysis();
}

void frmSetSelection::setRange(const QDateTime& start, const QDateTime& end)
{
    m_dateStart->setDate(start.date());
    m_timeStart->setTime(start.time());
    m_dateEnd->setDate(end.date());
    m_timeEnd->setTime(end.time());
}

QDateTime frmSetSelection::rangeEnd(bool end) const
{
    // Read straight from the fields as meter time: a text parsed by this PC's clock would
    // lose an hour that its zone skips.
    return WallClock::at((end ? m_dateEnd : m_dateStart)->date(),
                         (end ? m_timeEnd : m_timeStart)->time());
}

void frmSetSelection::viewSets()
{
    if (m_sets.isEmpty()) {
        userMessages().show(userText("702033", "No Sets Loaded"));
        return;
    }
    TrendRequest request;
    LogFileEntry meter;
    meter.dbPath = m_file->text();
    meter.used = true;
    request.meters = {meter};
    QList<int> rows;
    for (const QModelIndex& index : m_grid->selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty())
        for (int r = 0; r < m_sets.size(); ++r)
            rows << r;
    for (int r : rows)
        request.dataIds << m_sets.at(r).dataId;
    request.from = rangeEnd(false);
    request.to = rangeEnd(true);
    emit viewRequested(request);
}

} // namespace lorvane
