// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/engine/QueryCatalog.h"
#include "relaylogic/RelayLogicSession.h"

#include <QWidget>
#include <array>
#include <functional>

class QPushButton;
class QTableView;

namespace lorvane {

class GridTableModel;
class RelayLogicCanvas;

/// The relay logic tree of one relay record: the tree in `Picture1`, the grid of its inputs
/// and delays in `vsFlexGrid1`, and the buttons `Command1`. The rules live in its
/// `RelayLogicSession`; the window shows the session's tree and passes the presses on. A step
/// that fails keeps the last good tree and says why.
class FrmRelayLogic : public QWidget
{
    Q_OBJECT

public:
    /// Index of a `Command1` button.
    enum Command
    {
        Print = 0,
        Previous = 1,
        Next = 2,
        Ok = 3,
        Help = 4,
        CommandCount = 5,
    };

    /// A window over the relay rows `rows` (their keys in the calling grid's order) of query
    /// `numbers` in `scratch`, which must outlive it.
    FrmRelayLogic(SqliteDatabase& scratch, const QueryNumbers& numbers, QList<QVariantMap> rows,
                  QWidget* parent = nullptr);
    ~FrmRelayLogic() override;

    /// ShowRelayLogic: the tree of row `position`. False, with the message shown, when it
    /// cannot be read.
    bool ShowRelayLogic(int position);
    /// "Previous" (-1) and "Next" (+1).
    void step(int delta);
    /// "Print": the tree and its grid with the print preview, after the refusals.
    void print();
    /// Whether every line of the grid is shown, so that a printed page holds it whole.
    bool gridPrintable() const;

    QPushButton* command(Command which) const { return m_commands.at(which); }
    RelayLogicCanvas* picture() const { return m_picture; }
    QTableView* grid() const { return m_grid; }
    const RelayLogicSession& session() const { return m_session; }

signals:
    void helpRequested(const QString& topic);

private:
    bool guarded(const std::function<void()>& work);
    void showTree();

    RelayLogicSession m_session;
    RelayLogicCanvas* m_picture = nullptr;
    QTableView* m_grid = nullptr;
    GridTableModel* m_model = nullptr;
    QWidget* m_page = nullptr;
    std::array<QPushButton*, CommandCount> m_commands{};
};

} // namespace lorvane
