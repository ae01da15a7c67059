// SPDX-License-Identifier: GPL-3.0-or-later
#include "selDateTime.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "store/WallClock.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace lorvane {

namespace {

constexpr int lastMinute = 24 * 60 - 1;

} // namespace

selDateTime::selDateTime(bool endOfRange, bool twentyFourHour, QWidget* parent)
    : QDialog(parent), m_twentyFourHour(twentyFourHour)
{
    setObjectName(QStringLiteral("selDateTime"));
    setWindowTitle(userText("310300", "Date and Time"));

    auto* heading = new QLabel(endOfRange ? userText("310301", "Please select an end date/time.")
                                          : userText("310302", "Please select a start date/time."));
    heading->setObjectName(QStringLiteral("Heading"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);

    m_calendar = new QCalendarWidget;
    m_calendar->setObjectName(QStringLiteral("Calendar1"));
    m_calendar->setGridVisible(true);

    m_slider = new QSlider(Qt::Horizontal);
    m_slider->setObjectName(QStringLiteral("Slider1"));
    m_slider->setRange(0, lastMinute);
    m_slider->setSingleStep(1);
    m_slider->setPageStep(60);
    m_slider->setTickPosition(QSlider::TicksBelow);
    m_slider->setTickInterval(60);
    connect(m_slider, &QSlider::valueChanged, this, [this] {
        m_timeSet = true;
        showTime();
    });

    m_time = new QLabel;
    m_time->setObjectName(QStringLiteral("TimeText"));
    m_time->setAlignment(Qt::AlignCenter);
    QFont large = m_time->font();
    large.setPointSize(large.pointSize() + 4);
    m_time->setFont(large);

    const QStringList ends =
        twentyFourHour
            ? QStringList{QStringLiteral("0:00"), QStringLiteral("12:00"), QStringLiteral("23:59")}
            : QStringList{QStringLiteral("12:00 AM"), QStringLiteral("12:00 PM"),
                          QStringLiteral("11:59 PM")};
    auto* endRow = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        auto* label = new QLabel(ends.at(i));
        label->setObjectName(QStringLiteral("SliderEnd%1").arg(i));
        endRow->addWidget(label);
        if (i < 2)
            endRow->addStretch();
    }

    auto* ok = new QPushButton(userText("310303", "OK"));
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &selDateTime::OK_Click);
    auto* cancel = new QPushButton(userText("310304", "&Cancel"));
    cancel->setObjectName(QStringLiteral("CancelButton"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(m_calendar);
    layout->addWidget(m_time);
    layout->addWidget(m_slider);
    layout->addLayout(endRow);
    layout->addLayout(buttons);
    showTime();
}

void selDateTime::setDateTime(const QDateTime& value)
{
    if (!value.isValid()) {
        m_slider->setValue(0);
        m_timeSet = false;
        showTime();
        return;
    }
    m_calendar->setSelectedDate(value.date());
    const QTime time = value.time();
    m_slider->setValue(time.hour() * 60 + time.minute());
    m_timeSet = true;
    showTime();
}

void selDateTime::setDateRange(const QDate& first, const QDate& last)
{
    if (first.isValid() && last.isValid())
        m_calendar->setDateRange(first, last);
}

void selDateTime::setMinuteOfDay(int minute)
{
    m_slider->setValue(minute);
}

QDateTime selDateTime::dateTime() const
{
    return WallClock::at(m_calendar->selectedDate(), QTime(0, 0).addSecs(m_slider->value() * 60));
}

void selDateTime::OK_Click()
{
    const QDate date = m_calendar->selectedDate();
    const bool inRange = date >= m_calendar->minimumDate() && date <= m_calendar->maximumDate();
    if (!inRange || !dateTime().isValid()) {
        userMessages().show(userText("310305", "Invalid date/time."), UserMessages::Icon::Warning);
        return;
    }
    accept();
}

void selDateTime::showTime()
{
    if (!m_timeSet) {
        m_time->setText(QStringLiteral("00:00"));
        return;
    }
    const QTime time = QTime(0, 0).addSecs(m_slider->value() * 60);
    m_time->setText(
        time.toString(m_twentyFourHour ? QStringLiteral("H:mm") : QStringLiteral("h:mm AP")));
}

} // namespace lorvane
