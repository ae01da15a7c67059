// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trend/OverviewAnalysis.h"
#include "trend/TrendRequest.h"

#include <QWidget>

class QDateEdit;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;
class QTimeEdit;

namespace lorvane {

class WorkGuard;

/// The historical overview: what a large snapshot log holds before anything is loaded. The
/// grid lists each set with its first and last hour and its number of points from the
/// overview tables; "Analyze" rebuilds those tables in the meter file after asking; "View"
/// sends the chosen sets and the view range to the trend window.
class frmSetSelection : public QWidget
{
    Q_OBJECT

public:
    explicit frmSetSelection(WorkGuard& work, QWidget* parent = nullptr);

    /// `LoadAnalysis` of the file in `entryFilename`.
    void loadAnalysis();
    /// `Analyze`: asks, writes the tables, then loads them.
    void analyze();
    /// `ViewSets`: "No Sets Loaded" without sets; else the selected sets (all when none is
    /// selected) over the view range go out as `viewRequested`.
    void viewSets();

    QLineEdit* entryFilename() const { return m_file; }
    QTableWidget* gridAnalysis() const { return m_grid; }
    QListWidget* listStatus() const { return m_status; }
    void setRange(const QDateTime& start, const QDateTime& end);

signals:
    void viewRequested(const lorvane::TrendRequest& request);

private:
    void line(const QString& text);
    void guarded(const std::function<void()>& press);
    QDateTime rangeEnd(bool end) const;

    WorkGuard& m_work;
    QLineEdit* m_file;
    QDateEdit* m_dateStart;
    QTimeEdit* m_timeStart;
    QDateEdit* m_dateEnd;
    QTimeEdit* m_timeEnd;
    QTableWidget* m_grid;
    QListWidget* m_status;
    QList<OverviewSet> m_sets;
};

} // namespace lorvane
