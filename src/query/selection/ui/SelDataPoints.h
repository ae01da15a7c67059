// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/selection/DataPointSelection.h"

#include <QDialog>
#include <array>

class QLabel;
class QPushButton;
class QTableWidget;

namespace lorvane {

class TopQueryBuffer;

/// The data point dialog: the points the open meters log on the left, the chosen ones on the
/// right. Every decision is taken by DataPointSelection; the dialog shows its two lists.
class SelDataPoints : public QDialog
{
    Q_OBJECT

public:
    /// Opens the dialog on `available` (the points of the used meters) for `devices` meters;
    /// "&Set Default" updates the run's `stored` defaults and writes `settingsFile`.
    SelDataPoints(DataPointSelection& points, TopQueryBuffer& buffer,
                  const QList<DataPointRow>& available, int devices, DefaultSelection& stored,
                  QString settingsFile, QWidget* parent = nullptr);

    /// A press of button `index`: 0 help, 1 cancel, 2 OK, 3 restore, 4 set default, 5 add,
    /// 6 remove, 7 add all, 8 remove all. Add and remove move the selected rows of their list.
    void Command1_Click(int index);
    /// The available list (`which` 1) or the selected list (`which` 2).
    QTableWidget* grid(int which) const;

signals:
    /// Help topic asked for ("LRMain").
    void helpRequested(const QString& topic);

private:
    void moveSelectedRows(int which);
    void moveRow(int which, int row);
    void showLists();
    /// Shows a refusal or result text, if any.
    static void tell(const QString& text);

    DataPointSelection& m_points;
    TopQueryBuffer& m_buffer;
    int m_devices;
    DefaultSelection& m_stored;
    QString m_settingsFile;
    std::array<QTableWidget*, 2> m_grids{};
    std::array<QLabel*, 2> m_counts{};
};

} // namespace lorvane
