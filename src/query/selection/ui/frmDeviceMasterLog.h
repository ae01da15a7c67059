// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/selection/DeviceMasterLog.h"

#include <QDialog>

class QLabel;
class QTableWidget;

namespace lorvane {

/// The logs of a Device Master Log and whether each can be read; the user picks the one to
/// open. The result is the picked log database, or empty when cancelled.
class frmDeviceMasterLog : public QDialog
{
    Q_OBJECT

public:
    /// Lists the logs beside the `.dml` file at `dmlPath`.
    explicit frmDeviceMasterLog(const QString& dmlPath, QWidget* parent = nullptr);

    /// Takes row `row` as the selection (a row outside the table selects nothing).
    void selectRow(int row);
    /// `cmd_ViewSelLog`: closes with the selected log.
    void cmd_ViewSelLog_Click();
    /// The database of the selected log; empty while none is selected or after cancel.
    QString selectedPath() const;
    /// The grid of logs ("Log", "Status").
    QTableWidget* grid() const { return m_grid; }

private:
    DeviceMasterLog m_log;
    int m_selected = -1;
    bool m_cancelled = false;
    QTableWidget* m_grid = nullptr;
    QLabel* m_label = nullptr;
};

} // namespace lorvane
