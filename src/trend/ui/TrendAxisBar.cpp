// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendAxisBar.h"

#include "platform/UserText.h"

#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

namespace lorvane {

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 8);
}

void paintBox(QPushButton* box, quint32 rgb)
{
    box->setStyleSheet(QStringLiteral("background-color: #%1; min-width: 18px;")
                           .arg(rgb, 6, 16, QLatin1Char('0')));
}

} // namespace

QString TrendAxisBar::colourTitle(Colour which)
{
    switch (which) {
    case Back:
        return userText("701040", "Graph Back Color");
    case Grid:
        return userText("701041", "Graph Grid Color");
    case Text:
        return userText("701042", "Graph Text Color");
    case Value:
        break;
    }
    return userText("701043", "Graph Value Color");
}

TrendAxisBar::TrendAxisBar(QWidget* parent) : QWidget(parent), m_gap(new QLineEdit)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    const QString names[] = {userText("701044", "Left Axis"), userText("701045", "Right Axis")};
    for (int i = 0; i < 4; ++i) {
        auto* box = new QLineEdit;
        box->setObjectName(QStringLiteral("valAxisRange%1").arg(i));
        box->setMaximumWidth(90);
        m_axis.at(size_t(i)) = box;
        if (i % 2 == 0)
            layout->addWidget(new QLabel(names[i / 2]));
        layout->addWidget(box);
        const TrendAxis axis = i < 2 ? TrendAxis::Left : TrendAxis::Right;
        const bool high = i % 2 == 1;
        connect(box, &QLineEdit::editingFinished, this,
                [this, box, axis, high] { emit axisValueEntered(axis, high, box->text()); });
    }
    layout->addSpacing(12);
    layout->addWidget(new QLabel(userText("701046", "Interval Gap")));
    m_gap->setObjectName(QStringLiteral("valIntervalGap"));
    m_gap->setMaximumWidth(60);
    m_gap->setValidator(new QDoubleValidator(0, 36600, 6, m_gap));
    layout->addWidget(m_gap);
    layout->addWidget(new QLabel(userText("701047", "Days")));
    connect(m_gap, &QLineEdit::editingFinished, this,
            [this] { emit intervalGapEntered(m_gap->text().toDouble()); });
    layout->addStretch();
    const char* names2[] = {"boxColorBack", "boxColorGrid", "boxColorText", "boxColorValue"};
    for (int i = 0; i < 4; ++i) {
        auto* box = new QPushButton;
        box->setObjectName(QString::fromLatin1(names2[i]));
        box->setToolTip(colourTitle(Colour(i)));
        box->setFixedSize(22, 22);
        m_colours.at(size_t(i)) = box;
        layout->addWidget(box);
        connect(box, &QPushButton::clicked, this, [this, i] { emit colourClicked(Colour(i)); });
    }
}

void TrendAxisBar::showView(const TrendView& view)
{
    const double values[] = {view.viewport.left.min, view.viewport.left.max,
                             view.viewport.right.min, view.viewport.right.max};
    // The right axis boxes wait for a set on that axis: until then there is nothing to set.
    const bool right = std::any_of(view.sets.cbegin(), view.sets.cend(), [](const GraphSet& set) {
        return set.axis == TrendAxis::Right;
    });
    for (int i = 0; i < 4; ++i) {
        m_axis.at(size_t(i))->setText(i < 2 || right ? number(values[i]) : QString());
        m_axis.at(size_t(i))->setEnabled(i < 2 || right);
    }
    m_gap->setText(number(view.intervalGapDays));
    const quint32 colours[] = {view.backColour, view.gridColour, view.textColour, view.valueColour};
    for (int i = 0; i < 4; ++i)
        paintBox(m_colours.at(size_t(i)), colours[i]);
}

} // namespace lorvane
