// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/UserMessages.h"

namespace lorvane {

/// The program's messages as modal Qt message boxes over the active window, titled with the
/// program's name unless the caller names a title.
class DialogMessages : public UserMessages
{
public:
    explicit DialogMessages(QString defaultTitle) : m_defaultTitle(std::move(defaultTitle)) {}

    void show(const QString& text, Icon icon, const QString& title) override;
    bool ask(const QString& question, const QString& title) override;
    void beep() override;

private:
    QString m_defaultTitle;
};

} // namespace lorvane
