// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelTimeRange.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "query/selection/TopQueryBuffer.h"
#include "query/selection/ui/selDateTime.h"
#include "store/WallClock.h"

#include <QDateEdit>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace lorvane {

SelTimeRange::SelTimeRange(TimeSelection& time, TopQueryBuffer& buffer,
                           const TimeSelection::Bounds& dataBounds, const QDateTime& now,
                           bool twentyFourHour, QWidget* parent)
    : QDialog(parent), m_time(time), m_buffer(buffer), m_twentyFourHour(twentyFourHour)
{
    setObjectName(QStringLiteral("SelTimeRange"));
    setWindowTitle(userText("310400", "Select a Time Range"));
    runPicker = [](selDateTime& picker) { return picker.exec() == QDialog::Accepted; };

    static const std::array<std::pair<const char*, const char*>, 6> captions{{
        {"310401", "&Between"},
        {"310402", "During the previous &hour(s)"},
        {"310403", "&During the previous &day(s)"},
        {"310404", "During the previous &week(s)"},
        {"310405", "During the previous &month(s)"},
        {"310406", "During the previous &year(s)"},
    }};
    auto* frame = new QGroupBox(userText("310407", "Time Range Selection Options"));
    auto* grid = new QGridLayout(frame);
    for (int i = 0; i < 6; ++i) {
        const auto& [id, english] = captions.at(static_cast<size_t>(i));
        auto* option = new QRadioButton(userText(id, english));
        option->setObjectName(QStringLiteral("Option1_%1").arg(i));
        option->setChecked(i == m_time.option());
        m_options.at(static_cast<size_t>(i)) = option;
        grid->addWidget(option, i == 0 ? 0 : i + 2, 0);
        if (i == 0)
            continue;
        auto* field = new QLineEdit(
            QString::number(i == m_time.option() && m_time.defined() ? m_time.interval() : 1));
        field->setObjectName(QStringLiteral("Text1_%1").arg(i));
        field->setMaximumWidth(60);
        field->setAlignment(Qt::AlignRight);
        auto* step = new QScrollBar(Qt::Vertical);
        step->setObjectName(QStringLiteral("VScroll1_%1").arg(i));
        step->setRange(TimeSelection::smallestInterval, TimeSelection::largestInterval);
        step->setInvertedControls(true);
        step->setInvertedAppearance(true);
        step->setFixedHeight(field->sizeHint().height());
        step->setValue(field->text().toInt());
        connect(step, &QScrollBar::valueChanged, field,
                [field](int value) { field->setText(QString::number(value)); });
        connect(field, &QLineEdit::textEdited, step, [step, option](const QString& text) {
            bool ok = false;
            const int value = text.toInt(&ok);
            if (ok && value >= step->minimum() && value <= step->maximum()) {
                const QSignalBlocker block(step);
                step->setValue(value);
            }
            option->setChecked(true);
        });
        m_intervals.at(static_cast<size_t>(i)) = field;
        auto* fieldRow = new QHBoxLayout;
        fieldRow->setSpacing(0);
        fieldRow->addWidget(field);
        fieldRow->addWidget(step);
        fieldRow->addStretch();
        grid->addLayout(fieldRow, i + 2, 1);
    }

    const QString tip = userText("310408", "Enter date/time or double-click it to get calendar");
    const QString dateFormat = QLocale::system().dateFormat(QLocale::ShortFormat);
    const QString timeFormat = twentyFourHour ? QStringLiteral("HH:mm") : QStringLiteral("h:mm AP");
    for (int i = 0; i < 4; ++i) {
        const bool isDate = i % 2 == 1;
        QDateTimeEdit* picker = isDate ? static_cast<QDateTimeEdit*>(new QDateEdit)
                                       : static_cast<QDateTimeEdit*>(new QTimeEdit);
        picker->setObjectName(QStringLiteral("DTPicker1_%1").arg(i));
        picker->setDisplayFormat(isDate ? dateFormat : timeFormat);
        picker->setToolTip(tip);
        picker->setMinimumWidth(isDate ? 120 : 90);
        if (isDate && dataBounds.start.isValid() && dataBounds.end.isValid())
            picker->setDateRange(dataBounds.start.date(), dataBounds.end.date());
        // The double click reaches the editor's text field, not the picker itself.
        for (QObject* child : picker->children())
            child->installEventFilter(this);
        picker->installEventFilter(this);
        m_pickers.at(static_cast<size_t>(i)) = picker;
    }
    QDateTime start = now;
    QDateTime end = now;
    if (m_time.option() == TimeSelection::Between && m_time.defined()) {
        start = m_time.startTime();
        end = m_time.endTime();
    } else if (dataBounds.start.isValid() && dataBounds.end.isValid()) {
        start = dataBounds.start;
        end = dataBounds.end;
    }
    setBound(false, start);
    setBound(true, end);
    // Editing a bound chooses Between; connected only now, so filling them does not.
    for (QDateTimeEdit* picker : m_pickers)
        connect(picker, &QDateTimeEdit::dateTimeChanged, m_options.at(0),
                [this] { m_options.at(0)->setChecked(true); });

    auto* betweenRow = new QGridLayout;
    betweenRow->addWidget(new QLabel(userText("310409", "From")), 0, 0);
    betweenRow->addWidget(m_pickers.at(1), 0, 1);
    betweenRow->addWidget(m_pickers.at(0), 0, 2);
    betweenRow->addWidget(new QLabel(userText("310410", "To")), 1, 0);
    betweenRow->addWidget(m_pickers.at(3), 1, 1);
    betweenRow->addWidget(m_pickers.at(2), 1, 2);
    betweenRow->setColumnStretch(3, 1);
    grid->addLayout(betweenRow, 1, 0, 1, 2);
    grid->setRowMinimumHeight(2, 8);
    grid->setColumnStretch(1, 1);

    auto* today = new QLabel(userText("310411", "current system date is") + QLatin1Char(' ') +
                             QLocale::c().toString(now.date(), QStringLiteral("MMMM dd, yyyy")));
    today->setObjectName(QStringLiteral("SystemDate"));

    auto* help = new QPushButton(userText("310412", "&Help"));
    help->setObjectName(QStringLiteral("HelpButton"));
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRMain")); });
    auto* ok = new QPushButton(userText("310413", "OK"));
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &SelTimeRange::OK_Click);
    auto* cancel = new QPushButton(userText("310414", "&Cancel"));
    cancel->setObjectName(QStringLiteral("CancelButton"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(today);
    layout->addWidget(frame);
    layout->addLayout(buttons);
}

void SelTimeRange::OK_Click()
{
    int option = TimeSelection::Undefined;
    for (int i = 0; i < 6 && option == TimeSelection::Undefined; ++i) {
        if (m_options.at(static_cast<size_t>(i))->isChecked())
            option = i;
    }
    if (option == TimeSelection::Between) {
        m_time.acceptBetween(bound(false), bound(true), m_buffer);
    } else if (option != TimeSelection::Undefined) {
        const QString refusal = m_time.acceptPrevious(
            option, m_intervals.at(static_cast<size_t>(option))->text(), m_buffer);
        if (!refusal.isEmpty()) {
            userMessages().show(refusal, UserMessages::Icon::Warning);
            return;
        }
    }
    accept();
}

void SelTimeRange::pickDateTime(bool endOfRange)
{
    selDateTime picker(endOfRange, m_twentyFourHour, this);
    const QDateTimeEdit* date = m_pickers.at(endOfRange ? 3 : 1);
    picker.setDateRange(date->minimumDate(), date->maximumDate());
    picker.setDateTime(bound(endOfRange));
    if (runPicker(picker))
        setBound(endOfRange, picker.dateTime());
}

bool SelTimeRange::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        for (int i = 0; i < 4; ++i) {
            QDateTimeEdit* picker = m_pickers.at(static_cast<size_t>(i));
            if (picker && (watched == picker || watched->parent() == picker)) {
                pickDateTime(i >= 2);
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

QDateTime SelTimeRange::bound(bool endOfRange) const
{
    const size_t first = endOfRange ? 2 : 0;
    const QTime time = m_pickers.at(first)->time();
    return WallClock::at(m_pickers.at(first + 1)->date(), time);
}

void SelTimeRange::setBound(bool endOfRange, const QDateTime& value)
{
    const size_t first = endOfRange ? 2 : 0;
    m_pickers.at(first)->setTime(value.time());
    m_pickers.at(first + 1)->setDate(value.date());
}

} // namespace lorvane
