// SPDX-License-Identifier: GPL-3.0-or-later
#include "DialogMessages.h"

#include <QApplication>
#include <QMessageBox>

namespace lorvane {

void DialogMessages::show(const QString& text, Icon icon, const QString& title)
{
    const QString caption = title.isEmpty() ? m_defaultTitle : title;
    QWidget* parent = QApplication::activeWindow();
    switch (icon) {
    case Icon::Information:
        QMessageBox::information(parent, caption, text);
        break;
    case Icon::Warning:
        QMessageBox::warning(parent, caption, text);
        break;
    case Icon::Critical:
        QMessageBox::critical(parent, caption, text);
        break;
    }
}

bool DialogMessages::ask(const QString& question, const QString& title)
{
    const QString caption = title.isEmpty() ? m_defaultTitle : title;
    return QMessageBox::question(QApplication::activeWindow(), caption, question,
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void DialogMessages::beep()
{
    QApplication::beep();
}

} // namespace lorvane
