// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendCapturePanel.h"

#include "graph/ui/TickLabels.h"
#include "platform/UserText.h"
#include "trend/TrendTexts.h"
#include "trend/TrendTime.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimeZone>

namespace lorvane {

namespace {

QLineEdit* readOut()
{
    auto* box = new QLineEdit;
    box->setReadOnly(true);
    return box;
}

} // namespace

TrendCapturePanel::TrendCapturePanel(QWidget* parent)
    : QWidget(parent), m_sets(new QComboBox), m_timestamp(readOut()), m_value(readOut()),
      m_min(readOut()), m_max(readOut()),
      m_previous(new QPushButton(userText("701020", "< Previous"))),
      m_next(new QPushButton(userText("701021", "Next >"))), m_start(new QDateTimeEdit),
      m_byPoints(new QRadioButton(userText("701022", "Points to include:"))),
      m_byDuration(new QRadioButton(userText("701023", "Duration"))), m_points(new QSpinBox),
      m_duration(new QSpinBox), m_generate(new QPushButton(userText("701024", "Generate")))
{
    m_previous->setObjectName(QStringLiteral("CmdPrevDataCap"));
    m_next->setObjectName(QStringLiteral("CmdNextDataCap"));
    m_generate->setObjectName(QStringLiteral("CmdGenerateMS"));
    auto* capture = new QGroupBox(TrendTexts::focusOnDataSet());
    auto* form = new QFormLayout(capture);
    form->addRow(m_sets);
    form->addRow(userText("701025", "Timestamp"), m_timestamp);
    form->addRow(userText("701026", "Value"), m_value);
    form->addRow(userText("701027", "Min"), m_min);
    form->addRow(userText("701028", "Max"), m_max);
    auto* steps = new QHBoxLayout;
    steps->addWidget(m_previous);
    steps->addWidget(m_next);
    form->addRow(steps);

    auto* ms = new QGroupBox(userText("701029", "Start At"));
    auto* msForm = new QFormLayout(ms);
    m_start->setTimeSpec(Qt::UTC);
    m_start->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
    msForm->addRow(userText("701030", "Start Time"), m_start);
    m_points->setRange(1, 1000000);
    m_points->setValue(100);
    m_duration->setRange(1, 3600000);
    m_duration->setValue(1000);
    m_duration->setSuffix(QLatin1Char(' ') + userText("701031", "milliseconds"));
    m_byPoints->setChecked(true);
    msForm->addRow(m_byPoints, m_points);
    msForm->addRow(m_byDuration, m_duration);
    msForm->addRow(m_generate);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(capture);
    layout->addWidget(ms);
    layout->addStretch();
    connect(m_previous, &QPushButton::clicked, this,
            [this] { emit stepRequested(false, focus()); });
    connect(m_next, &QPushButton::clicked, this, [this] { emit stepRequested(true, focus()); });
    connect(m_generate, &QPushButton::clicked, this,
            [this] { emit generateRequested(msRequest()); });
    setSets({});
}

void TrendCapturePanel::setSets(const QStringList& names)
{
    m_sets->clear();
    m_sets->addItem(TrendTexts::allDataSets());
    m_sets->addItems(names);
}

int TrendCapturePanel::focus() const
{
    return m_sets->currentIndex() - 1;
}

void TrendCapturePanel::showCapture(const TrendSession::Capture& capture)
{
    if (!capture.point)
        return;
    m_timestamp->setText(TickLabels::value(capture.point->time, true));
    m_value->setText(QString::number(capture.point->value, 'f', 3));
    m_min->setText(QString::number(capture.minimum, 'f', 3));
    m_max->setText(QString::number(capture.maximum, 'f', 3));
    setStart(capture.point->time);
}

void TrendCapturePanel::setStart(double ms)
{
    m_start->setDateTime(TrendTime::clock(ms));
}

MsViewRequest TrendCapturePanel::msRequest() const
{
    MsViewRequest request;
    request.focus = focus();
    request.start = TrendTime::of(m_start->dateTime());
    request.byPoints = m_byPoints->isChecked();
    request.points = m_points->value();
    request.durationMs = m_duration->value();
    return request;
}

} // namespace lorvane
