// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqHistogramPage.h"

#include "PqHistogramChart.h"
#include "pqgraph/PqGraphTexts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableWidget>

namespace lorvane {

PqHistogramPage::PqHistogramPage(QWidget* parent)
    : QWidget(parent), m_chart(new PqHistogramChart),
      m_table(new QTableWidget(PqCounts::magnitudeBins, 3))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_chart, 1);
    layout->addWidget(m_table);
    m_table->setHorizontalHeaderLabels(PqGraphTexts::sumsHeads());
    m_table->setVerticalHeaderLabels(PqCounts::magnitudeLabels());
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setFocusPolicy(Qt::NoFocus);
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
    m_table->resizeColumnsToContents();
}

void PqHistogramPage::setSums(const PqCounts::Sums& sums)
{
    m_chart->setSums(sums);
    for (int m = 0; m < PqCounts::magnitudeBins; ++m) {
        const PqCounts::Sum& sum = sums[m];
        const QStringList cells{
            QString::number(sum.count), QString::number(sum.cumulative),
            sum.cumulativePercent ? QString::number(*sum.cumulativePercent, 'f', 2) : QString()};
        for (int c = 0; c < cells.size(); ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_table->setItem(m, c, item);
        }
    }
    m_table->resizeColumnsToContents();
    int width = m_table->verticalHeader()->width() + 4;
    for (int c = 0; c < m_table->columnCount(); ++c)
        width += m_table->columnWidth(c);
    m_table->setFixedWidth(width + m_table->frameWidth() * 2);
}

} // namespace lorvane
