// SPDX-License-Identifier: GPL-3.0-or-later
#include "frmProgress.h"

#include "app/ProgressTimeStamp.h"
#include "platform/UserText.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace lorvane {

frmProgress::frmProgress(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmProgress"));
    setWindowTitle(userText("309050", "Waveform Conversion"));
    m_label = new QLabel(this);
    m_bar = new QProgressBar(this);
    m_list = new QListWidget(this);
    m_list->setFont(QFont(QStringLiteral("Arial")));
    m_list->setMinimumSize(460, 220);
    m_cancel = new QPushButton(userText("309001", "&Cancel"), this);
    connect(m_cancel, &QPushButton::clicked, this, &frmProgress::cancelClicked);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(m_list, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    layout->addLayout(buttons);
    m_clock.start();
}

void frmProgress::Start(const QString& title)
{
    clearCancel();
    m_cancel->setEnabled(true);
    m_list->clear();
    m_bar->setValue(0);
    m_label->setText(title);
    setWindowTitle(userText("309050", "Waveform Conversion"));
    m_clock.restart();
    AddMessage(userText("309051", "Beginning of the conversion"));
}

void frmProgress::AddMessage(const QString& text)
{
    if (cancelPending())
        return;
    appendLine(ProgressTimeStamp::text(m_clock.elapsed()) + text);
}

void frmProgress::appendLine(const QString& text)
{
    m_list->addItem(text);
    m_list->scrollToBottom();
}

void frmProgress::setProgressMax(int maximum)
{
    m_bar->setRange(0, qMax(0, maximum));
}

void frmProgress::setProgress(int value)
{
    m_bar->setValue(value);
}

void frmProgress::showFraction(std::optional<double> fraction)
{
    // Thousandths of the work, or the busy bar for work of unknown length.
    constexpr int steps = 1000;
    m_bar->setRange(0, fraction ? steps : 0);
    if (fraction)
        m_bar->setValue(int(*fraction * steps + 0.5));
}

void frmProgress::serve()
{
    QCoreApplication::processEvents();
}

QStringList frmProgress::messages() const
{
    QStringList lines;
    for (int row = 0; row < m_list->count(); ++row)
        lines << m_list->item(row)->text();
    return lines;
}

void frmProgress::cancelClicked()
{
    // The cancel note goes in before the flag, which silences every later message.
    AddMessage(userText("309052", "User has cancelled the process...please wait.."));
    requestCancel();
    m_cancel->setEnabled(false);
}

} // namespace lorvane
