// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendPrintPage.h"

#include "graph/ui/GraphOutput.h"
#include "platform/UserText.h"
#include "trend/TrendTexts.h"

#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

namespace lorvane {

namespace {

QLabel* cell(const QString& text, bool bold = false)
{
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
    return label;
}

} // namespace

TrendPrintPage::TrendPrintPage(const TrendView& view, QWidget* graphs, QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_DontShowOnScreen);
    setStyleSheet(QStringLiteral("background: white; color: black;"));
    auto* layout = new QVBoxLayout(this);
    QLabel* title = cell(TrendTexts::printTitle(), true);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    title->setFont(font);
    layout->addWidget(title);

    auto* table = new QGridLayout;
    table->setHorizontalSpacing(24);
    const QString headings[] = {userText("701070", "Data Set"), userText("701071", "Max Value"),
                                userText("701072", "Min Value")};
    for (int c = 0; c < 3; ++c)
        table->addWidget(cell(headings[c], true), 0, c);
    for (int r = 0; r < view.sets.size(); ++r) {
        const GraphSet& set = view.sets.at(r);
        table->addWidget(cell(set.name), r + 1, 0);
        table->addWidget(cell(QString::number(set.maximum, 'f', 3)), r + 1, 1, Qt::AlignRight);
        table->addWidget(cell(QString::number(set.minimum, 'f', 3)), r + 1, 2, Qt::AlignRight);
    }
    table->setColumnStretch(3, 1);
    layout->addLayout(table);

    auto* picture = new QLabel;
    picture->setPixmap(QPixmap::fromImage(GraphOutput::image(graphs)));
    layout->addWidget(picture);
    layout->addStretch();
    adjustSize();
}

} // namespace lorvane
