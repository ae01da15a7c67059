// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphPanel.h"

#include "platform/UserText.h"
#include "powergraph/AutoShow.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

namespace lorvane {

PGraphPanel::PGraphPanel(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    auto* fields = new QFormLayout;
    auto edit = [this, fields](const QString& caption) {
        auto* e = new QLineEdit(this);
        fields->addRow(caption, e);
        return e;
    };
    maxY = edit(userText("801005", "Maximum Value"));
    minY = edit(userText("801006", "Minimum Value"));
    numDays = edit(userText("801020", "Number of Days to View"));
    start = edit(userText("801007", "Starting Date/Time to View"));
    records = edit(userText("801021", "Records"));
    records->setReadOnly(true);
    layout->addLayout(fields);

    auto check = [this, layout](const QString& caption) {
        auto* box = new QCheckBox(caption, this);
        layout->addWidget(box);
        return box;
    };
    moveBySample = check(userText("801022", "Move by Sample"));
    useSymbols = check(userText("801023", "Use Symbols"));
    colorPrintout = check(userText("801024", "Color Printout"));
    saveSettings = check(userText("801025", "Save Settings"));

    auto* steps = new QHBoxLayout;
    previous = new QPushButton(userText("801026", "Previous"), this);
    next = new QPushButton(userText("801027", "Next"), this);
    steps->addWidget(previous);
    steps->addWidget(next);
    layout->addLayout(steps);

    auto* show = new QGroupBox(userText("801028", "Auto Show"), this);
    auto* showLayout = new QVBoxLayout(show);
    autoShow = new QCheckBox(userText("801028", "Auto Show"), show);
    reverse = new QRadioButton(userText("801029", "Reverse"), show);
    forward = new QRadioButton(userText("801030", "Forward"), show);
    forward->setChecked(true);
    auto* direction = new QHBoxLayout;
    direction->addWidget(reverse);
    direction->addWidget(forward);
    speed = new QSlider(Qt::Horizontal, show);
    speed->setRange(0, AutoShow::maxSpeed);
    speed->setPageStep(1);
    speed->setTickPosition(QSlider::TicksBelow);
    showLayout->addWidget(autoShow);
    showLayout->addLayout(direction);
    auto* speedForm = new QFormLayout;
    speedForm->addRow(userText("801031", "Auto Show Speed"), speed);
    showLayout->addLayout(speedForm);
    layout->addWidget(show);

    redraw = new QPushButton(userText("801032", "Redraw"), this);
    print = new QPushButton(userText("801033", "Print"), this);
    close = new QPushButton(userText("801034", "C&lose"), this);
    redraw->setDefault(true);
    for (QPushButton* b : {redraw, print, close})
        layout->addWidget(b);
    layout->addStretch(1);
}

PGraphSession::Entries PGraphPanel::entries() const
{
    return {maxY->text(), minY->text(), numDays->text(), start->text()};
}

void PGraphPanel::setEntries(const PGraphSession::Entries& entries)
{
    maxY->setText(entries.maxY);
    minY->setText(entries.minY);
    numDays->setText(entries.numDaysView);
    start->setText(entries.start);
}

void PGraphPanel::setRecords(qint64 count)
{
    records->setText(QString::number(count));
}

} // namespace lorvane
