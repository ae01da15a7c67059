// SPDX-License-Identifier: GPL-3.0-or-later
#include "AboutLorvane.h"

#include "platform/UserText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace lorvane {

AboutLorvane::AboutLorvane(const AboutInfo& info, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("AboutLorvane"));
    setWindowTitle(userText("309060", "About QLM Lorvane"));
    auto* layout = new QVBoxLayout(this);
    for (const QString& text : info.lines()) {
        auto* line = new QLabel(text, this);
        line->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(line);
        m_lines << line;
    }
    QFont title = m_lines.first()->font();
    title.setBold(true);
    title.setPointSize(title.pointSize() + 2);
    m_lines.first()->setFont(title);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(userText("309061", "&OK"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addSpacing(8);
    layout->addWidget(buttons);
}

QStringList AboutLorvane::lines() const
{
    QStringList texts;
    for (const QLabel* line : m_lines)
        texts << line->text();
    return texts;
}

} // namespace lorvane
