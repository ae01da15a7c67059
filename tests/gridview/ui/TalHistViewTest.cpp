// SPDX-License-Identifier: GPL-3.0-or-later
// The log grid window on simulated meters: every kind through a button press, read back
// through the grid models; paging buttons, cancel, clipboard, the sort dialog.
#include "gridview/ui/TalHistView.h"

#include "app/RunContext.h"
#include "graph/ui/GraphWindows.h"
#include "gridview/LogViewTexts.h"
#include "gridview/ui/GridTableModel.h"
#include "gridview/ui/SortOptionsFrm.h"
#include "platform/SqliteDatabase.h"
#include "platform/UserMessages.h"
#include "query/selection/TopQueryBuffer.h"
#include "support/TestMeters.h"
#include "support/ui/Screenshot.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QFileInfo>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

using namespace lorvane;
using namespace lorvane::test;

namespace {

struct Window
{
    QTemporaryDir dir;
    RunContext context;
    QString meter;
    TopQueryBuffer buffer;
    std::unique_ptr<TalHistView> view;

    explicit Window(int tempLogRecSize = 4500)
    {
        // A stand-in for the waveform window, which the frame makes known: &Graph is enabled
        // for the kinds that have a window.
        GraphWindows::add(int(LogKind::Waveform),
                          [](const GraphSelection&, QWidget*) { return nullptr; });
        context.scratch = scratchDatabase(dir, 5151);
        const QString dictionary = QStringLiteral(LORVANE_BIN_DIR "/QLMNameList.DB");
        if (QFileInfo(dictionary).isFile())
            context.dictionary =
                std::make_unique<SqliteDatabase>(dictionary, SqliteDatabase::Mode::ReadOnly);
        context.paths.imageFolder = QStringLiteral(LORVANE_DATA_DIR "/sysimage");
        context.settings.tempLogRecSize = tempLogRecSize;
        meter = dir.filePath(QStringLiteral("Window.DB"));
        simulate(QStringList{QStringLiteral("--out"), meter, QStringLiteral("--seed"),
                             QStringLiteral("5")} +
                 smallMeterArguments());
        view = std::make_unique<TalHistView>(context);
        view->resize(1100, 560);
    }
    ~Window() { GraphWindows::remove(int(LogKind::Waveform)); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    ViewDispatch::Request press(int button) const
    {
        ViewDispatch::Request request;
        request.action = ViewDispatch::Action::Grid;
        request.button = button;
        request.logKind = ViewDispatch::logKindOf(button);
        request.start = QDateTime(QDate(2024, 3, 4), QTime(0, 0));
        request.end = QDateTime(QDate(2024, 3, 5), QTime(23, 59, 59));
        LogFileEntry entry;
        entry.dbPath = meter;
        entry.deviceTypeId = 3;
        entry.hardwareName = QStringLiteral("Window");
        entry.used = true;
        request.files << entry;
        request.itemIds = {20617, 20621, 20625, 21017};
        return request;
    }

    int rows(int grid) const { return view->grid(grid)->model()->rowCount(); }
    QString cell(int grid, int row, int column) const
    {
        const QAbstractItemModel* model = view->grid(grid)->model();
        return model->data(model->index(row, column)).toString();
    }
};

/// Progress that asks to stop at its first step.
class CancellingProgress : public LoadProgress
{
public:
    CancellingProgress() { requestCancel(); }
    void status(const QString&) override {}
};

} // namespace

TEST(TalHistView, EveryKindShowsItsGridsThroughTheModel)
{
    Window w;
    w.view->show();
    using Target = LogViewSession::GraphTarget;
    // Which window each kind hands its rows to with &Graph; the button is enabled once a
    // window has made itself known for the kind (here a stand-in for the waveform window).
    struct Press
    {
        int button;
        LogKind kind;
        const char* screenshot;
        Target graph;
    };
    const QList<Press> presses{{1, LogKind::Snapshots, "log-grid-snapshots", Target::TrendSetup},
                               {2, LogKind::Demand, nullptr, Target::TrendSetup},
                               {3, LogKind::Limits, "log-grid-limits", Target::None},
                               {7, LogKind::Inputs, nullptr, Target::None},
                               {8, LogKind::Relays, nullptr, Target::RelayTree},
                               {11, LogKind::Flicker, nullptr, Target::TrendSetup},
                               {4, LogKind::Waveform, "log-grid-waveform", Target::WaveformGraph},
                               {5, LogKind::PowerQuality, "log-grid-pq", Target::PqGraph},
                               {12, LogKind::SystemEvent, nullptr, Target::TrendSetup},
                               {0, LogKind::DatabaseStatus, "log-grid-status", Target::None}};
    EXPECT_EQ(LogViewSession::graphTarget(LogKind::EN50160), Target::ComplianceChart);
    for (const Press& p : presses) {
        SCOPED_TRACE(p.button);
        w.view->showRequest(w.press(p.button), w.buffer);
        EXPECT_EQ(w.view->logKind(), p.kind);
        EXPECT_TRUE(w.view->windowTitle().endsWith(
            QStringLiteral(" - [") + LogViewTexts::viewName(p.kind) + QLatin1Char(']')));
        EXPECT_GT(w.view->grid(0)->model()->columnCount(), 0);
        if (p.kind != LogKind::Demand) {
            EXPECT_GT(w.rows(0), 0) << "kind " << int(p.kind);
        }
        EXPECT_EQ(LogViewSession::graphTarget(p.kind), p.graph);
        EXPECT_EQ(w.view->command(TalHistView::GraphCommand)->isEnabled(),
                  p.kind == LogKind::Waveform);
        if (p.screenshot) {
            EXPECT_TRUE(saveScreenshot(w.view.get(), QString::fromLatin1(p.screenshot)));
        }
    }

    // The limit rows carry their picture; the snapshot grid its heading rows.
    w.view->showRequest(w.press(3), w.buffer);
    const QAbstractItemModel* limits = w.view->grid(0)->model();
    EXPECT_FALSE(limits->data(limits->index(0, 0), Qt::DecorationRole).value<QIcon>().isNull());
    w.view->showRequest(w.press(1), w.buffer);
    const QAbstractItemModel* snapshots = w.view->grid(0)->model();
    EXPECT_TRUE(
        snapshots->data(snapshots->index(0, 0), int(GridTableModel::Role::HeadingRow)).toBool());
    EXPECT_FALSE(snapshots
                     ->data(snapshots->index(snapshots->rowCount() - 1, 0),
                            int(GridTableModel::Role::HeadingRow))
                     .toBool());
}

TEST(TalHistView, PageButtonsFollowThePages)
{
    Window w(200);
    w.view->showRequest(w.press(1), w.buffer);
    QPushButton* up = w.view->command(TalHistView::UpCommand);
    QPushButton* down = w.view->command(TalHistView::DownCommand);
    EXPECT_FALSE(up->isEnabled());
    ASSERT_TRUE(down->isEnabled());
    const QString first = w.cell(0, w.rows(0) - 1, 0);
    QTest::mouseClick(down, Qt::LeftButton);
    EXPECT_TRUE(up->isEnabled());
    EXPECT_EQ(w.view->session().result().page, 2);
    EXPECT_NE(w.cell(0, w.rows(0) - 1, 0), first);
    int guard = 0;
    while (down->isEnabled() && guard++ < 100)
        QTest::mouseClick(down, Qt::LeftButton);
    EXPECT_FALSE(down->isEnabled());
    EXPECT_TRUE(w.view->session().result().allRead);
    QTest::mouseClick(up, Qt::LeftButton);
    EXPECT_TRUE(down->isEnabled());

    // &Back hides the window and tells the frame.
    QSignalSpy back(w.view.get(), &TalHistView::backRequested);
    QSignalSpy help(w.view.get(), &TalHistView::helpRequested);
    QTest::mouseClick(w.view->command(TalHistView::HelpCommand), Qt::LeftButton);
    ASSERT_EQ(help.count(), 1);
    EXPECT_EQ(help.first().first().toString(), QStringLiteral("LRHistTrends"));
    QTest::mouseClick(w.view->command(TalHistView::BackCommand), Qt::LeftButton);
    EXPECT_EQ(back.count(), 1);
}

TEST(TalHistView, ACancelledLoadKeepsTheWindowAndIsNotBuffered)
{
    Window w;
    int made = 0;
    w.view->setProgressFactory([&made] {
        ++made;
        return std::make_unique<CancellingProgress>();
    });
    w.view->showRequest(w.press(1), w.buffer);
    EXPECT_GT(made, 0);
    EXPECT_TRUE(w.view->session().result().cancelled);
    EXPECT_FALSE(w.buffer.holds(1));
    EXPECT_TRUE(w.view->command(TalHistView::BackCommand)->isEnabled());
    // Without the cancel the next press reads the range.
    w.view->setProgressFactory(nullptr);
    w.view->showRequest(w.press(1), w.buffer);
    EXPECT_FALSE(w.view->session().result().cancelled);
    EXPECT_TRUE(w.buffer.holds(1));
}

TEST(TalHistView, WaveformGraphAndClipboardCopy)
{
    Window w;
    w.view->showRequest(w.press(4), w.buffer);
    ASSERT_GT(w.rows(0), 1);
    QList<GraphSelection> requested;
    QObject::connect(w.view.get(), &TalHistView::graphRequested,
                     [&](const GraphSelection& s) { requested << s; });
    QTableView* grid = w.view->grid(0);
    grid->setCurrentIndex(grid->model()->index(1, 0));
    QTest::mouseClick(w.view->command(TalHistView::GraphCommand), Qt::LeftButton);
    ASSERT_EQ(requested.size(), 1);
    EXPECT_EQ(requested.first().logKind, int(LogKind::Waveform));
    EXPECT_EQ(requested.first().position, 1);
    EXPECT_EQ(requested.first().rows.size(), w.rows(0));
    // The range text, from which the window makes its caption.
    EXPECT_FALSE(requested.first().caption.isEmpty());

    grid->clearSelection();
    const QAbstractItemModel* model = grid->model();
    grid->selectionModel()->select(QItemSelection(model->index(0, 0), model->index(1, 2)),
                                   QItemSelectionModel::Select);
    w.view->copySelection();
    const QString expected =
        QStringList{w.cell(0, 0, 0), w.cell(0, 0, 1), w.cell(0, 0, 2)}.join(QLatin1Char('\t')) +
        QLatin1Char('\n') +
        QStringList{w.cell(0, 1, 0), w.cell(0, 1, 1), w.cell(0, 1, 2)}.join(QLatin1Char('\t'));
    EXPECT_EQ(QApplication::clipboard()->text(), expected);
}

TEST(TalHistView, DoubleClickedWaveformRowShowsItsSettingWithTheWiringPicture)
{
    Window w;
    w.view->show();
    w.view->showRequest(w.press(4), w.buffer);
    ASSERT_GT(w.rows(0), 0);
    // The offscreen platform delivers no double-click to the viewport: the grid's signal
    // stands for it.
    QTableView* waves = w.view->grid(0);
    emit waves->doubleClicked(waves->model()->index(0, 1));

    // The setting goes to the settings grid, shown in front, with the hook-up's drawing.
    const QAbstractItemModel* setting = w.view->grid(3)->model();
    ASSERT_GT(setting->rowCount(), 30);
    EXPECT_TRUE(w.view->grid(3)->isVisible());
    int hookUp = -1;
    for (int r = 0; r < setting->rowCount() && hookUp < 0; ++r) {
        if (setting->data(setting->index(r, 0)).toString() == QStringLiteral("HookUp"))
            hookUp = r;
    }
    ASSERT_GE(hookUp, 0);
    EXPECT_FALSE(
        setting->data(setting->index(hookUp, 0), Qt::DecorationRole).value<QIcon>().isNull());
    w.view->grid(3)->resizeColumnsToContents();
    EXPECT_TRUE(saveScreenshot(w.view.get(), QStringLiteral("log-grid-pq-setting")));
}

TEST(TalHistView, CheckMarksBindTheSelectedRowAndRowsTellTheirNumber)
{
    RecordedMessages messages;
    ScopedUserMessages scoped(messages);
    Window w;
    w.view->show();
    w.view->showRequest(w.press(4), w.buffer);
    ASSERT_GT(w.rows(0), 1);
    QTableView* grid = w.view->grid(0);
    QCheckBox* first = w.view->checkMark(0);
    QCheckBox* second = w.view->checkMark(1);
    EXPECT_TRUE(first->isVisible());

    // No row: the mark stays clear and says why.
    grid->setCurrentIndex(QModelIndex());
    first->click();
    EXPECT_FALSE(first->isChecked());
    EXPECT_FALSE(w.view->boundRecord(0).has_value());
    EXPECT_EQ(messages.texts(), QStringList{QStringLiteral("Please select a waveform record.")});

    // A row: each mark holds its own until it is cleared.
    grid->setCurrentIndex(grid->model()->index(1, 0));
    first->click();
    grid->setCurrentIndex(grid->model()->index(0, 0));
    second->click();
    EXPECT_TRUE(first->isChecked());
    EXPECT_TRUE(second->isChecked());
    ASSERT_TRUE(w.view->boundRecord(0).has_value());
    ASSERT_TRUE(w.view->boundRecord(1).has_value());
    EXPECT_EQ(w.view->boundRecord(0)->cells.first(), w.cell(0, 1, 0));
    EXPECT_EQ(w.view->boundRecord(1)->cells.first(), w.cell(0, 0, 0));
    EXPECT_EQ(w.view->boundRecord(0)->logKind, LogKind::Waveform);
    first->click();
    EXPECT_FALSE(w.view->boundRecord(0).has_value());
    EXPECT_TRUE(w.view->boundRecord(1).has_value());

    // Another view clears the marks; the PQ view has its own message.
    messages.clear();
    w.view->showRequest(w.press(5), w.buffer);
    EXPECT_FALSE(second->isChecked());
    EXPECT_FALSE(w.view->boundRecord(1).has_value());
    grid->setCurrentIndex(QModelIndex());
    second->click();
    EXPECT_FALSE(second->isChecked());
    EXPECT_EQ(messages.texts(), QStringList{QStringLiteral("Please select a PQ record.")});

    // Snapshots have no marks; a chosen row tells its number in the window and to the frame.
    w.view->showRequest(w.press(1), w.buffer);
    EXPECT_FALSE(first->isVisible());
    QSignalSpy status(w.view.get(), &TalHistView::statusTextChanged);
    const int count = int(w.view->session().result().grids.first().rows.size());
    ASSERT_GT(count, 1);
    grid->setCurrentIndex(grid->model()->index(w.rows(0) - 1, 0));
    const QString expected = QStringLiteral("Record %1, %1").arg(count);
    ASSERT_GT(status.count(), 0);
    EXPECT_EQ(status.last().first().toString(), expected);
    EXPECT_EQ(w.view->statusText(), expected);
    // A refill leaves no row chosen and no stale text.
    w.view->showRequest(w.press(1), w.buffer);
    EXPECT_TRUE(w.view->statusText().isEmpty());
    EXPECT_TRUE(status.last().first().toString().isEmpty());
}

TEST(TalHistView, TheSortDialogShowsTheChoiceAndReturnsIt)
{
    SortState state;
    state.item = 2;
    state.descending = true;
    state.recordType = 1;
    SortOptionsFrm dialog(
        {QStringLiteral("Date/Time"), QStringLiteral("Data Point"), QStringLiteral("Duration")},
        {QStringLiteral("All Snapshots"), QStringLiteral("Group By Type")}, state);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Sort Data Options"));
    EXPECT_EQ(dialog.selectedItems()->currentRow(), 2);
    EXPECT_EQ(dialog.order()->currentText(), QStringLiteral("Descending"));
    EXPECT_TRUE(saveScreenshot(&dialog, QStringLiteral("sort-options")));
    dialog.selectedItems()->setCurrentRow(1);
    dialog.order()->setCurrentIndex(0);
    const SortState chosen = dialog.state();
    EXPECT_EQ(chosen.item, 1);
    EXPECT_FALSE(chosen.descending);
    EXPECT_EQ(chosen.recordType, 1);
}

TEST(GridTableModel, AMillionRowsAnswerForTheLastRow)
{
    GridTable table;
    table.columns = {QStringLiteral("Date/Time"), QStringLiteral("Value")};
    table.headingRows << QStringList{QStringLiteral("Device"), QStringLiteral("1")};
    constexpr int count = 1000000;
    table.rows.reserve(count);
    for (int i = 0; i < count; ++i)
        table.rows << QStringList{QString::number(i), QString::number(i * 2)};
    GridTableModel model;
    model.setTable(std::move(table));
    ASSERT_EQ(model.rowCount(), count + 1);
    EXPECT_EQ(model.data(model.index(count, 1)).toString(), QString::number((count - 1) * 2));
    EXPECT_EQ(model.dataRow(count), count - 1);
    EXPECT_EQ(model.dataRow(0), -1);
    EXPECT_FALSE(model.data(model.index(count + 1, 0)).isValid());
}
