// SPDX-License-Identifier: GPL-3.0-or-later
#include "UserMessages.h"

#include <cstdio>

namespace lorvane {

namespace {

/// Without a window the user still reads the message: on standard error.
class StandardErrorMessages : public UserMessages
{
public:
    void show(const QString& text, Icon, const QString&) override
    {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
    bool ask(const QString& question, const QString&) override
    {
        std::fprintf(stderr, "%s (answered No)\n", qPrintable(question));
        return false;
    }
    void beep() override { std::fputc('\a', stderr); }
};

StandardErrorMessages g_standardError;
UserMessages* g_current = &g_standardError;

} // namespace

UserMessages& userMessages()
{
    return *g_current;
}

UserMessages* installUserMessages(UserMessages* messages)
{
    UserMessages* previous = g_current;
    g_current = messages ? messages : &g_standardError;
    return previous;
}

void RecordedMessages::show(const QString& text, Icon icon, const QString&)
{
    m_texts << text;
    m_icons << icon;
}

bool RecordedMessages::ask(const QString& question, const QString&)
{
    m_texts << question;
    return m_answer;
}

void RecordedMessages::clear()
{
    m_texts.clear();
    m_icons.clear();
    m_beeps = 0;
}

} // namespace lorvane
