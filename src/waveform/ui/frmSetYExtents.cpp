// SPDX-License-Identifier: GPL-3.0-or-later
#include "frmSetYExtents.h"

#include "YExtentsTarget.h"
#include "platform/UserText.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace lorvane {

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 8);
}

} // namespace

frmSetYExtents::frmSetYExtents(YExtentsTarget* chart, QWidget* parent)
    : QDialog(parent), m_chart(chart), m_maximum(new QLineEdit(number(chart->yMax()))),
      m_minimum(new QLineEdit(number(chart->yMin()))), m_step(new QLineEdit(QStringLiteral("10"))),
      m_locked(new QCheckBox(userText("503200", "Locked")))
{
    setWindowTitle(userText("503201", "Set Y Extents"));
    m_locked->setChecked(true);
    auto* form = new QFormLayout(this);
    auto row = [this](QLineEdit* edit, bool top) {
        auto* box = new QHBoxLayout;
        box->addWidget(edit);
        for (const bool up : {true, false}) {
            auto* button = new QToolButton;
            button->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
            button->setAutoRepeat(true);
            connect(button, &QToolButton::clicked, this, [this, top, up] { press(top, up); });
            box->addWidget(button);
        }
        connect(edit, &QLineEdit::returnPressed, this, &frmSetYExtents::apply);
        return box;
    };
    form->addRow(userText("503202", "Maximum"), row(m_maximum, true));
    form->addRow(userText("503203", "Minimum"), row(m_minimum, false));
    form->addRow(userText("503204", "Adjust amount"), m_step);
    form->addRow(QString(), m_locked);
}

void frmSetYExtents::press(bool top, bool up)
{
    bool okTop = false;
    bool okBottom = false;
    bool okStep = false;
    double maximum = m_maximum->text().toDouble(&okTop);
    double minimum = m_minimum->text().toDouble(&okBottom);
    const double step = m_step->text().toDouble(&okStep);
    if (!okTop || !okBottom || !okStep)
        return;
    const double move = up ? step : -step;
    if (top) {
        maximum += move;
        if (m_locked->isChecked())
            minimum -= move;
    } else {
        minimum += move;
        if (m_locked->isChecked())
            maximum -= move;
    }
    m_maximum->setText(number(maximum));
    m_minimum->setText(number(minimum));
    apply();
}

void frmSetYExtents::apply()
{
    bool okTop = false;
    bool okBottom = false;
    const double maximum = m_maximum->text().toDouble(&okTop);
    const double minimum = m_minimum->text().toDouble(&okBottom);
    if (okTop && okBottom)
        m_chart->setManualY(minimum, maximum);
}

} // namespace lorvane
