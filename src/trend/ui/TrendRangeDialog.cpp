// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendRangeDialog.h"

#include "platform/UserText.h"

#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QTimeZone>

namespace lorvane {

namespace {

QDateTimeEdit* clockEdit(const QDateTime& value)
{
    auto* edit = new QDateTimeEdit;
    // Meter time has no zone: the edit shows the reading as it is.
    edit->setTimeSpec(Qt::UTC);
    edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    edit->setDateTime(value);
    return edit;
}

} // namespace

TrendRangeDialog::TrendRangeDialog(const QDateTime& start, const QDateTime& end, QWidget* parent)
    : QDialog(parent), m_start(clockEdit(start)), m_end(clockEdit(end))
{
    setWindowTitle(userText("701100", "Set Graph Range"));
    auto* form = new QFormLayout(this);
    form->addRow(userText("701101", "Start Time"), m_start);
    form->addRow(userText("701102", "End Time"), m_end);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QDateTime TrendRangeDialog::start() const
{
    return m_start->dateTime();
}

QDateTime TrendRangeDialog::end() const
{
    return m_end->dateTime();
}

} // namespace lorvane
