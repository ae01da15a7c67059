// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pqgraph/PqCounts.h"

#include <QWidget>

class QTableWidget;

namespace lorvane {

class PqHistogramChart;

/// "Histogram": the magnitude histogram with the table of sums beside it (count, cumulative
/// count and cumulative percent of each magnitude bin).
class PqHistogramPage : public QWidget
{
    Q_OBJECT

public:
    explicit PqHistogramPage(QWidget* parent = nullptr);

    void setSums(const PqCounts::Sums& sums);
    QTableWidget* table() const { return m_table; }

private:
    PqHistogramChart* m_chart = nullptr;
    QTableWidget* m_table = nullptr;
};

} // namespace lorvane
