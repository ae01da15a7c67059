// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "powergraph/PGraphRecords.h"
#include "powergraph/PGraphView.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QTableWidget;

namespace lorvane {

class SqliteDatabase;
class TempQueryDatabase;
class WorkGuard;

/// The item choice of a power graph over a snapshot or demand query: the grid `vsFlexGrid1`
/// of "Data ID" and "Data Name" (one row per data point of the log), the chart kind, and the
/// counters "Items", "devices" and "total items". "&OK" checks the choice (at least one item,
/// at most six) and reads the records from the query's tables.
class SelPGraph : public QDialog
{
    Q_OBJECT

public:
    /// The data points of `query`; throws StorageError when its tables cannot be read.
    /// `work` (may be null) is entered while the records are read. With `offerTrend` the
    /// chart kinds end with "Trend Graph": the grid's other graph, which takes every column
    /// and needs no choice of rows.
    SelPGraph(TempQueryDatabase& scratch, SqliteDatabase* dictionary, qint64 query, WorkGuard* work,
              bool offerTrend = false, QWidget* parent = nullptr);

    /// The rows chosen, in list order.
    QList<int> chosenRows() const;
    /// Chooses exactly `rows` (a test, or the caller's preset).
    void choose(const QList<int>& rows);
    void setKind(PGraphView::Kind kind);
    PGraphView::Kind kind() const;
    /// "Trend Graph" is the kind chosen.
    bool trendChosen() const;
    void chooseTrend();
    /// "&OK": true, and the records read, when the choice may be drawn; otherwise the message
    /// is shown and the dialog stays.
    bool confirm();
    /// The items with their records after `confirm`.
    const QList<PGraphItem>& items() const { return m_items; }
    QTableWidget* grid() const { return m_grid; }
    QString counterText() const;

private:
    void updateCounters();

    TempQueryDatabase& m_scratch;
    qint64 m_query;
    WorkGuard* m_work;
    QList<PGraphChoice> m_choices;
    QList<PGraphItem> m_items;
    QTableWidget* m_grid = nullptr;
    QComboBox* m_kind = nullptr;
    QLabel* m_counters = nullptr;
    QLabel* m_wait = nullptr;
};

} // namespace lorvane
