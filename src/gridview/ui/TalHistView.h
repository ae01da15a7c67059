// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gridview/LogViewSession.h"
#include "platform/LoadProgress.h"
#include "query/engine/QueryCatalog.h"
#include "query/selection/ViewDispatch.h"

#include <QList>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QStackedWidget;
class QTabBar;

namespace lorvane {

class GridTableModel;
class TopQueryBuffer;
struct RunContext;

/// The one grid window of every log kind: the grids of the current view, its pages, its sort
/// and the hand-overs to the graph windows. The logic lives in LogViewSession; this window
/// shows it and turns clicks into its calls.
class TalHistView : public QWidget
{
    Q_OBJECT
public:
    /// The command buttons by their fixed index.
    enum Command
    {
        SortCommand = 0,
        GraphCommand = 1,
        HelpCommand = 2,
        BackCommand = 3,
        UpCommand = 4,
        DownCommand = 5,
    };

    explicit TalHistView(RunContext& context, QWidget* parent = nullptr);
    ~TalHistView() override;

    /// Takes the fields of a view button press and runs LoadQuery(request.fresh); false,
    /// with nothing changed, while other long work runs.
    bool showRequest(const ViewDispatch::Request& request, TopQueryBuffer& buffer);
    /// Runs the loaders (`fresh`) or shows the buffered query of the pressing button.
    void LoadQuery(bool fresh);
    /// The kind shown (the last request's).
    LogKind logKind() const;
    /// The progress watcher of the loads (the frame gives the wait window); null = silent.
    void setProgressFactory(std::function<std::unique_ptr<LoadProgress>()> factory);

    /// Grid `index` (0 to 3), for the frame and the tests.
    QTableView* grid(int index) const;
    /// Command button `index` (see Command).
    QPushButton* command(int index) const;
    /// The session behind the window.
    const LogViewSession& session() const { return m_session; }
    /// Copies the selected cells of the grid shown to the clipboard, tab separated.
    void copySelection();
    /// Check mark `index` of `Check1` (0 or 1).
    QCheckBox* checkMark(int index) const;
    /// The row check mark `index` binds to a graph; empty when it is not set.
    std::optional<LogViewSession::BoundRecord> boundRecord(int index) const;
    /// The status text of the selected row ("Record {n}, {count}"), empty for none.
    QString statusText() const;
    /// Asked when the whole program is closed while this window is in front: true to go on.
    bool confirmExit();

signals:
    void backRequested(); // &Back
    void helpRequested(const QString& topic);
    /// &Graph on a row of a kind with a graph window: the rows to open it on.
    void graphRequested(const lorvane::GraphSelection& selection);
    /// The status text of the selected row changed ("Record {n}, {count}" or empty).
    void statusTextChanged(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    void refresh();
    void showGrids();
    void selectGrid(int tab);
    void showCaption(int gridIndex);
    void step(int delta);
    void openSort();
    void graph();
    void typeChosen(int index);
    void sortChosen(int index);
    void pageChosen(int index);
    void rowActivated(int gridIndex, const QModelIndex& index);
    void checkToggled(int index, bool checked);
    void showStatus(const QString& text);
    QString selectionText(int gridIndex) const;
    int selectedRow() const;
    /// A view of `kind` is shown whose grid can be re-sorted.
    bool loadedKind(LogKind kind) const;
    /// Runs `work` with a progress watcher unless other long work runs (false); a failure is
    /// told in a message box and the window keeps what it showed.
    bool runGuarded(const std::function<void(LoadProgress*)>& work);

    RunContext& m_context;
    LogViewSession m_session;
    std::function<std::unique_ptr<LoadProgress>()> m_progressFactory;
    std::array<QTableView*, 4> m_grids{};
    std::array<GridTableModel*, 4> m_models{};
    std::array<QPushButton*, 6> m_commands{};
    std::array<QCheckBox*, LogViewSession::checkMarks> m_checks{};
    QComboBox* m_combo1 = nullptr;
    QComboBox* m_combo2 = nullptr;
    QComboBox* m_combo3 = nullptr;
    QLabel* m_label1 = nullptr;
    QLabel* m_typeLabel = nullptr;
    QLabel* m_status = nullptr;
    QTabBar* m_captions = nullptr;
    QStackedWidget* m_stack = nullptr;
    bool m_filling = false;
};

} // namespace lorvane
