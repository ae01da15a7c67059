// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGSelLabel.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "powergraph/PGraphModule.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace lorvane {

PGSelLabel::PGSelLabel(QString settingsFile, QWidget* parent)
    : QDialog(parent), m_settingsFile(std::move(settingsFile))
{
    setWindowTitle(userText("802030", "Graph Labels"));
    const PowerGraphDefaults stored = PGraphModule::LoadPowerGraphDefaults(m_settingsFile);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    m_line1 = new QLineEdit(stored.comment.at(0), this);
    m_line2 = new QLineEdit(stored.comment.at(1), this);
    form->addRow(userText("802031", "Line 1"), m_line1);
    form->addRow(userText("802032", "Line 2"), m_line2);
    layout->addLayout(form);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(userText("802015", "&OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(userText("802016", "&Cancel"), QDialogButtonBox::RejectRole);
    QPushButton* help = buttons->addButton(userText("802033", "Help"), QDialogButtonBox::HelpRole);
    QPushButton* restoreButton =
        buttons->addButton(userText("802018", "&Restore"), QDialogButtonBox::ResetRole);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (store())
            accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRPowerGraph")); });
    connect(restoreButton, &QPushButton::clicked, this, &PGSelLabel::restore);
    resize(420, sizeHint().height());
}

bool PGSelLabel::store()
{
    PowerGraphDefaults stored = PGraphModule::LoadPowerGraphDefaults(m_settingsFile);
    stored.comment = {m_line1->text(), m_line2->text()};
    if (PGraphModule::SavePowerGraphDefaults(m_settingsFile, stored))
        return true;
    userMessages().show(userText("801065", "The settings could not be saved to") +
                            QStringLiteral(" ") + m_settingsFile,
                        UserMessages::Icon::Warning);
    return false;
}

void PGSelLabel::restore()
{
    m_line1->clear();
    m_line2->clear();
    userMessages().show(userText("802020", "Default settings restored"));
}

} // namespace lorvane
